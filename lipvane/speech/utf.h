#pragma once

#include <string>
#include <string_view>

#include "lipvane/formats/read_problem.h"

namespace lipvane::speech {

/// The text as UTF-8, without a byte order mark. What a mark says to be UTF-16 of either byte order
/// is converted; anything else is taken as it is. False when UTF-16 ends within a character or has
/// half of a pair alone.
bool ToUtf8(std::string_view bytes, std::string& text, ReadProblem& problem);

/// Appends one character.
void AppendUtf8(std::string& text, char32_t character);

/// Cuts the first character off; a byte that begins none stands for itself, as U+DC80 to U+DCFF.
/// The text must not be empty.
char32_t TakeCharacter(std::string_view& text);

}  // namespace lipvane::speech
