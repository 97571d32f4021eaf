#pragma once

#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "lipvane/text/lists.h"

/// The tokens of a line as its writer meant them, and where the readers see others.
namespace lipvane::check {

/// What stands between separators, any of these bytes, however many in a row.
void SplitWords(std::string_view line, std::vector<std::string_view>& words,
                std::string_view separators = " ");

/// How many words a reader finds before a leading or a second blank makes one token of the rest of
/// the line; nothing when it finds all. Blanks at the end do no harm.
std::optional<std::size_t> WordsBeforeDoubledBlank(std::string_view line);

/// Without white space at the end: after a line's last number it does no harm.
std::string_view WithoutTrailingSpace(std::string_view line);

/// Blanks, tabs and carriage returns alone, or nothing? Of two carriage returns at a line's end the
/// readers take the first for text.
bool IsBlank(std::string_view text);

bool HasTab(std::string_view text);

/// A number that is finite, and nothing else.
bool IsNumber(std::string_view word);

/// In double quotes; long texts cut short.
std::string Quoted(std::string_view text);

/// `"0,5" is no finite number and read as 0`; nothing for a number whose size is at most `limit`.
std::optional<std::string> NumberProblem(std::string_view word,
                                         double limit = std::numeric_limits<double>::max());

using text::Counted;

}  // namespace lipvane::check
