#include "lipvane/text/pending_file.h"

#include <array>
#include <atomic>
#include <utility>

#ifndef _WIN32
#include <unistd.h>
#endif

namespace lipvane::text {
namespace {

/// Global, since a signal handler is handed nothing but the signal's number.
std::array<std::atomic<const PendingFile*>, 8> pendingFiles;
static_assert(std::atomic<const PendingFile*>::is_always_lock_free, "a handler must not wait");

bool Exchange(const PendingFile* from, const PendingFile* to) noexcept {
  for (std::atomic<const PendingFile*>& place : pendingFiles) {
    const PendingFile* held = from;
    if (place.compare_exchange_strong(held, to)) return true;
  }
  return false;
}

}  // namespace

PendingFile::PendingFile(std::string temporary, std::string target)
    : temporary_(std::move(temporary)), target_(std::move(target)) {
  Exchange(nullptr, this);
}

PendingFile::~PendingFile() {
  Exchange(this, nullptr);
}

void RemovePendingFiles(void (*notWritten)(const char* target)) noexcept {
#ifdef _WIN32
  static_cast<void>(notWritten);
#else
  for (const std::atomic<const PendingFile*>& place : pendingFiles) {
    const PendingFile* const file = place;
    // One that is in its target's place already is no longer there to be removed.
    if (file != nullptr && unlink(file->Temporary().c_str()) == 0)
      notWritten(file->Target().c_str());
  }
#endif
}

}  // namespace lipvane::text
