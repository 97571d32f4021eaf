#include "cli/output.h"

#include <filesystem>
#include <iostream>
#include <system_error>

#include "cli/messages.h"
#include "lipvane/text/file.h"

namespace lipvane::cli {
namespace {

bool WriteToStandardOutput(const std::function<void(std::ostream&)>& write) {
  write(std::cout);
  std::cout.flush();
  if (std::cout) return true;
  PrintError("standard output: it could not be written");
  return false;
}

}  // namespace

bool TakesPlaceOf(const std::string& output, const std::string& other) {
  namespace fs = std::filesystem;
  if (output.empty() || other.empty()) return false;
  if (output == kStandardOutput || other == kStandardOutput) return false;  // the other: any stream
  std::error_code error;
  if (fs::exists(output, error) && !fs::is_regular_file(output, error)) return false;
  const fs::path one = fs::weakly_canonical(fs::absolute(output, error), error);
  if (error) return false;
  const fs::path two = fs::weakly_canonical(fs::absolute(other, error), error);
  return !error && one == two;
}

bool FolderExists(const std::string& fileName) {
  const std::filesystem::path folder = std::filesystem::path(fileName).parent_path();
  std::error_code error;
  if (folder.empty() || std::filesystem::is_directory(folder, error)) return true;
  PrintError(fileName + ": there is no folder " + folder.string());
  return false;
}

bool WriteOutput(const std::string& fileName, const std::function<void(std::ostream&)>& write) {
  if (fileName == kStandardOutput) return WriteToStandardOutput(write);
  text::OutputFile file;
  std::string reason;
  if (file.Open(fileName, text::OutputFile::Mode::kBinary, reason)) {
    try {
      write(file.Stream());
    } catch (...) {
      if (file.IsInPlace()) PrintError(fileName + ": a part of it was written in place");
      throw;
    }
    if (file.Commit(reason)) return true;
  }
  PrintError(fileName + ": " + reason);
  return false;
}

}  // namespace lipvane::cli
