#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "lipvane/check/finding.h"

namespace lipvane::check {

/// What the tracks of an animation may move.
struct Vocabulary {
  std::vector<std::string> speechTargets;  ///< in the order of their poses
  std::vector<std::string> expressions;
};

/// Adds what is to be said of the text of an animation file, in order of line.
void CheckLtf(const std::string& fileName, std::string_view text, const Vocabulary& vocabulary,
              std::vector<Finding>& findings);

}  // namespace lipvane::check
