#include "lipvane/text/file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <locale>
#include <memory>
#include <new>
#include <system_error>
#include <utility>

#include "lipvane/text/large_pages.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <process.h>
#else
#include <unistd.h>
#endif

namespace lipvane::text {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kSmallestRoom = std::size_t{64} << 10;
// A string fills its new places with zeros. Of a piece of this size they are still in the cache
// when the read overwrites them; of a whole file they would go through the memory once for nothing.
constexpr std::size_t kLargestRead = std::size_t{256} << 10;
constexpr int kMostLinks = 40;
constexpr int kMostTemporaries = 1000;
// Folders allow 255 bytes a name; what we put around it needs some of them.
constexpr std::size_t kLongestNameInTemporary = 200;
constexpr char kDamaged[] = "it had to be written in place, and is damaged now";

struct FileCloser {
  void operator()(std::FILE* file) const { static_cast<void>(std::fclose(file)); }
};
using FileHandle = std::unique_ptr<std::FILE, FileCloser>;

long ProcessId() {
#ifdef _WIN32
  return _getpid();
#else
  return getpid();
#endif
}

std::string Words(int error) {
  return std::generic_category().message(error);
}

std::string Words(std::errc error) {
  return Words(static_cast<int>(error));
}

/// What the last call on a file left behind; a library that leaves nothing gets a general word.
std::string LastError() {
  return Words(errno != 0 ? errno : EIO);
}

/// Reads to the end, of which `expected` says about where it is.
bool ReadToEnd(std::FILE* file, std::size_t expected, std::size_t limit, std::string& bytes,
               std::string& reason) {
  // One more than expected, so that the last read meets the end.
  bytes.reserve(std::max(expected + 1, kSmallestRoom));
  UseLargePages(bytes.data(), bytes.capacity());
  for (;;) {
    const std::size_t length = bytes.size();
    if (length == bytes.capacity()) bytes.reserve(length + length);
    const std::size_t piece = std::min(kLargestRead, bytes.capacity() - length);
    bytes.resize(length + piece);
    errno = 0;
    const std::size_t count = std::fread(bytes.data() + length, 1, piece, file);
    bytes.resize(length + count);
    if (std::ferror(file) != 0) {
      reason = LastError();
      return false;
    }
    if (bytes.size() > limit) {
      reason = Words(std::errc::file_too_large);
      return false;
    }
    if (count < piece) return true;
  }
}

bool ReadWhole(std::FILE* file, std::size_t expected, std::size_t limit, std::string& content,
               std::string& reason) {
  std::string bytes;
  try {
    if (!ReadToEnd(file, expected, limit, bytes, reason)) return false;
  } catch (const std::bad_alloc&) {
    reason = Words(std::errc::not_enough_memory);
    return false;
  }
  content = std::move(bytes);
  return true;
}

/// Whether a symbolic link is a name for an open file, as "/dev/stdout" leads to.
bool NamesDescriptor(const std::string& link) {
  return link.compare(0, 6, "/proc/") == 0 || link.compare(0, 8, "/dev/fd/") == 0;
}

/// Where the symbolic links of `path` end, there or not.
bool FollowLinks(fs::path& path, bool& throughDescriptor, std::string& reason) {
  std::error_code error;
  throughDescriptor = false;
  for (int links = 0; fs::is_symlink(fs::symlink_status(path, error)); ++links) {
    if (links == kMostLinks) {
      reason = Words(std::errc::too_many_symbolic_link_levels);
      return false;
    }
    throughDescriptor = throughDescriptor || NamesDescriptor(path.string());
    const fs::path next = fs::read_symlink(path, error);
    if (error) {
      reason = error.message();
      return false;
    }
    path = path.parent_path() / next;  // an absolute `next` replaces all of it
  }
  return true;
}

/// Makes an empty file, which must be new.
bool Make(const std::string& path) {
  errno = 0;
  return FileHandle(std::fopen(path.c_str(), "wbx")) != nullptr;
}

/// Makes an empty file of a new name beside `target`. False with the error when it cannot.
bool MakeTemporary(const fs::path& target, std::optional<PendingFile>& pending, int& error) {
  const std::string name = target.filename().string().substr(0, kLongestNameInTemporary);
  const std::string stem = "." + name + ".lipvane-" + std::to_string(ProcessId()) + "-";
  for (int i = 0; i < kMostTemporaries; ++i) {
    const fs::path path = target.parent_path() / (stem + std::to_string(i) + ".tmp");
    // Pending before it is there: a signal between the two finds nothing to remove.
    pending.emplace(path.string(), target.string());
    if (Make(pending->Temporary())) return true;
    error = errno;
    pending.reset();  // it is somebody else's, if anybody's
    if (error != EEXIST) break;
  }
  return false;
}

/// Whether a file may be written in place because no other could be made beside it. Not for want
/// of something that the writing will want, too: that would only lose the earlier file.
bool IsReasonToWriteInPlace(int error, const fs::path& target) {
  if (error == ENOMEM || error == EMFILE || error == ENFILE) return false;
  if (error != ENOSPC) return true;
  std::error_code unknown;  // a disk may have room, but for no more files
  const fs::space_info space = fs::space(target, unknown);
  return !unknown && space.available > 0;
}

/// Replaces what a file that is open to append holds by what another holds.
bool WriteOver(std::FILE* file, const std::string& name, std::FILE* whole) {
  std::error_code error;
  fs::resize_file(name, 0, error);
  if (error) {
    errno = error.value();
    return false;
  }
  std::array<char, 16384> piece{};
  for (std::size_t count = piece.size(); count == piece.size();) {
    errno = 0;
    count = std::fread(piece.data(), 1, piece.size(), whole);
    if (std::ferror(whole) != 0 || std::fwrite(piece.data(), 1, count, file) != count) return false;
  }
  errno = 0;
  return std::fflush(file) == 0;
}

}  // namespace

bool ReadFile(const std::string& fileName, std::string& content, std::string& reason) {
  std::error_code error;
  const fs::file_status status = fs::status(fileName, error);
  if (fs::is_directory(status)) {
    reason = Words(std::errc::is_a_directory);
    return false;
  }
  std::size_t expected = 0;
  if (fs::is_regular_file(status)) {
    const std::uintmax_t size = fs::file_size(fileName, error);
    if (!error && size > kMaxFileSize) {
      reason = Words(std::errc::file_too_large);
      return false;
    }
    if (!error) expected = static_cast<std::size_t>(size);
  }

  errno = 0;
  const FileHandle file(std::fopen(fileName.c_str(), "rb"));
  if (!file) {
    reason = LastError();
    return false;
  }
  const std::size_t limit = fs::is_regular_file(status) ? kMaxFileSize : kMaxPipeSize;
  return ReadWhole(file.get(), expected, limit, content, reason);
}

bool ReadStandardInput(std::string& content, std::string& reason) {
#ifdef _WIN32
  _setmode(_fileno(stdin), _O_BINARY);
#endif
  return ReadWhole(stdin, 0, kMaxPipeSize, content, reason);
}

OutputFile::~OutputFile() {
  Discard();
}

bool OutputFile::Open(const std::string& fileName, Mode mode, std::string& reason) {
  Discard();
  if (fileName.empty()) {
    reason = Words(std::errc::no_such_file_or_directory);
    return false;
  }
  fs::path target(fileName);
  bool throughDescriptor = false;
  if (!FollowLinks(target, throughDescriptor, reason)) return false;

  std::error_code error;
  const fs::file_status status = fs::status(fileName, error);
  if (fs::is_directory(status) || target.filename().empty()) {
    reason = Words(std::errc::is_a_directory);
    return false;
  }
  const std::ios::openmode kind = mode == Mode::kBinary ? std::ios::binary : std::ios::openmode();
  const bool exists = fs::exists(status);
  if (exists && (throughDescriptor || !fs::is_regular_file(status))) {
    // Appending: what stands for our own output may be a file that others have written to.
    errno = 0;
    stream_.open(fileName, std::ios::out | std::ios::app | kind);
    if (!stream_) reason = LastError();
    return stream_.is_open();
  }

  errno = 0;
  if (exists && !FileHandle(std::fopen(target.string().c_str(), "ab"))) {
    reason = LastError();
    return false;
  }
  int failure = 0;
  if (MakeTemporary(target, pending_, failure)) {
    errno = 0;
    stream_.open(pending_->Temporary(), std::ios::out | std::ios::trunc | kind);
    if (!stream_) {
      reason = LastError();
      Discard();
      return false;
    }
    if (exists) fs::permissions(pending_->Temporary(), status.permissions(), error);
    if (!exists || !error) return true;
    Discard();  // no file to take the other's place
  } else if (exists && !IsReasonToWriteInPlace(failure, target)) {
    reason = Words(failure);
    return false;
  }
  return OpenInPlace(target.string(), exists, kind, reason);
}

bool OutputFile::OpenInPlace(const std::string& target, bool exists, std::ios::openmode kind,
                             std::string& reason) {
  if (!exists) {
    if (!Make(target)) {
      reason = LastError();
      return false;
    }
    pending_.emplace(target, target);  // removed when it does not become whole
  }
  // Emptied only when all that may fail is done.
  errno = 0;
  stream_.open(target, std::ios::out | std::ios::app | kind);
  std::error_code error(stream_ ? 0 : errno, std::generic_category());
  if (!error) fs::resize_file(target, 0, error);
  if (error || !stream_) {
    reason = Words(error ? error.value() : EIO);
    Discard();
    return false;
  }
  isInPlace_ = exists;
  return true;
}

bool OutputFile::Commit(std::string& reason) {
  if (!stream_.is_open()) {
    reason = Words(std::errc::bad_file_descriptor);
    return false;
  }
  const bool goodSoFar = stream_.good();
  errno = 0;
  stream_.close();
  if (!stream_.good()) {
    reason = goodSoFar ? LastError() : "Not all of it could be written; is the disk full?";
    if (isInPlace_) reason += std::string(" (") + kDamaged + ")";
    Discard();
    return false;
  }
  if (pending_ && !TakePlace(reason)) {
    Discard();
    return false;
  }
  pending_.reset();
  isInPlace_ = false;
  return true;
}

bool OutputFile::TakePlace(std::string& reason) {
  const std::string temporary = pending_->Temporary();
  const std::string target = pending_->Target();
  if (temporary == target) return true;
  std::error_code error;
  fs::rename(temporary, target, error);
  if (!error) return true;
  reason = error.message();
  // What keeps its place (a mount point, another's file in a sticky folder) may still be written.
  if (!fs::is_regular_file(target, error)) return false;
  const FileHandle whole(std::fopen(temporary.c_str(), "rb"));
  FileHandle file(whole ? std::fopen(target.c_str(), "ab") : nullptr);
  if (!file) return false;
  // From here on the temporary is all that is whole: no signal is to remove it.
  pending_.reset();
  if (!WriteOver(file.get(), target, whole.get()) || std::fclose(file.release()) != 0) {
    reason = LastError() + " (" + kDamaged + "; the whole of it is in " + temporary + ")";
    return false;
  }
  static_cast<void>(std::remove(temporary.c_str()));
  return true;
}

void OutputFile::Discard() {
  if (stream_.is_open()) stream_.close();
  stream_.clear();
  isInPlace_ = false;
  // Numbers are ours to format; the process's locale has no say in them.
  stream_.imbue(std::locale::classic());
  if (!pending_) return;
  // Not by a path, which would want memory, and there may be none.
  static_cast<void>(std::remove(pending_->Temporary().c_str()));
  pending_.reset();
}

}  // namespace lipvane::text
