#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "lipvane/check/finding.h"
#include "lipvane/check/vocabulary.h"

namespace lipvane::check {

/// Adds what is to be said of the text of an animation file, in order of line.
void CheckLtf(const std::string& fileName, std::string_view text, const Vocabulary& vocabulary,
              std::vector<Finding>& findings);

}  // namespace lipvane::check
