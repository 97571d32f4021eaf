#pragma once

#include <string>

namespace lipvane {

/// Why a file was refused.
struct ReadProblem {
  /// Counted from 1; 0 when the file as a whole is meant.
  int line = 0;
  /// May hold any bytes of the file.
  std::string reason;

  /// "FILE:LINE: REASON", without the line when the file as a whole is meant.
  std::string Text(const std::string& fileName) const {
    return fileName + (line > 0 ? ":" + std::to_string(line) : "") + ": " + reason;
  }
};

}  // namespace lipvane
