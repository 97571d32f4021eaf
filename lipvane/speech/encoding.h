#pragma once

#include <string>
#include <string_view>

#include "lipvane/formats/read_problem.h"

namespace lipvane::speech {

/// The text as UTF-8, without a byte order mark. What a mark says to be UTF-16 of either byte order
/// is converted; anything else is taken as it is. False when UTF-16 ends within a character or has
/// half of a pair alone, and when the text is larger than 2 GB.
bool ToUtf8(std::string_view bytes, std::string& text, ReadProblem& problem);

}  // namespace lipvane::speech
