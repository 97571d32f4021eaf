#pragma once

#include <string>

namespace lipvane::text {

/// A file that is being written: its bytes go to a temporary, which is to take the target's place.
/// While the object lives, `RemovePendingFiles` knows of it.
class PendingFile {
 public:
  PendingFile(std::string temporary, std::string target);
  PendingFile(const PendingFile&) = delete;
  PendingFile& operator=(const PendingFile&) = delete;
  /// Forgets the file, and touches nothing.
  ~PendingFile();

  const std::string& Temporary() const { return temporary_; }
  const std::string& Target() const { return target_; }

 private:
  std::string temporary_;
  std::string target_;
};

/// For a program that is told to end: removes every temporary, and tells `notWritten` each target,
/// which stays as it was. A signal handler of a POSIX system may call it, where it may call
/// `notWritten`; elsewhere it does nothing, since files that are open cannot be removed there. It
/// knows up to eight files at once.
void RemovePendingFiles(void (*notWritten)(const char* target)) noexcept;

}  // namespace lipvane::text
