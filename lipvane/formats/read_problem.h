#pragma once

#include <string>

namespace lipvane {

/// Why a file was refused.
struct ReadProblem {
  /// Counted from 1; 0 when the file as a whole is meant.
  int line = 0;
  std::string reason;
};

}  // namespace lipvane
