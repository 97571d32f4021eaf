#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "lipvane/check/finding.h"

namespace lipvane::check {

/// Adds what is to be said of the text of a bone pose file, in order of line.
void CheckLbp(const std::string& fileName, std::string_view text, std::vector<Finding>& findings);

}  // namespace lipvane::check
