#pragma once

#include <cstddef>
#include <fstream>
#include <optional>
#include <ostream>
#include <string>

#include "lipvane/text/pending_file.h"

namespace lipvane::text {

/// No text file that we read is larger; more is a device or a mistake.
inline constexpr std::size_t kMaxFileSize = std::size_t{4} << 30;

/// No pipe brings more text; more is a device that never ends.
inline constexpr std::size_t kMaxPipeSize = std::size_t{256} << 20;

/// The whole content of a file, byte for byte. False with a reason ("No such file or directory",
/// "Is a directory" ...) when it cannot be read; then `content` is left alone.
bool ReadFile(const std::string& fileName, std::string& content, std::string& reason);
/// The same for standard input, up to its end. What of it was read before is gone.
bool ReadStandardInput(std::string& content, std::string& reason);

/// A file that is written whole or not at all, wherever that is possible: the bytes go to a
/// temporary beside it, and `Commit` puts that in the file's place. Without a commit the destructor
/// removes the temporary and an earlier file stays as it was.
///
/// An earlier file that may be written, but not replaced, is written in place: from the beginning
/// where no temporary can be made (the folder is not ours to write, a path leaves no room), or as a
/// copy of the temporary where that cannot take the file's name (a mount point, another's file in a
/// sticky folder). When that fails the file is damaged, and the reason says so. What is not a
/// regular file (a device, a pipe) is written directly.
class OutputFile {
 public:
  enum class Mode { kText, kBinary };

  OutputFile() = default;
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;
  ~OutputFile();

  /// False with a reason when the file could not be written in the end (its folder is missing, it
  /// is itself a folder or read-only ...).
  bool Open(const std::string& fileName, Mode mode, std::string& reason);
  std::ostream& Stream() { return stream_; }
  /// Closes and puts the file in place. False with a reason when any write failed.
  bool Commit(std::string& reason);
  /// Closes and removes what was written so far (of what is written directly, nothing).
  void Discard();
  /// Whether an earlier file is gone already: it is being written in place.
  bool IsInPlace() const { return isInPlace_; }

 private:
  bool OpenInPlace(const std::string& target, bool exists, std::ios::openmode kind,
                   std::string& reason);
  /// Puts the temporary in the target's place.
  bool TakePlace(std::string& reason);

  std::ofstream stream_;
  std::optional<PendingFile> pending_;  ///< none when an earlier target is written directly
  bool isInPlace_ = false;
};

}  // namespace lipvane::text
