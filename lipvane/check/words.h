#pragma once

#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The tokens of a line as its writer meant them, and where the readers see others.
namespace lipvane::check {

/// What stands between blanks, however many.
void SplitWords(std::string_view line, std::vector<std::string_view>& words);

/// How many words a reader finds before a leading or a second blank makes one token of the rest of
/// the line; nothing when it finds all. Blanks at the end do no harm.
std::optional<std::size_t> WordsBeforeDoubledBlank(std::string_view line);

/// Digits and nothing else but blanks around them.
bool IsPlainCount(std::string_view line);

/// In double quotes; long texts cut short, control characters as "?".
std::string Quoted(std::string_view text);

/// `"0,5" is no finite number and read as 0`; nothing for a number whose size is at most `limit`.
std::optional<std::string> NumberProblem(std::string_view word,
                                         double limit = std::numeric_limits<double>::max());

/// "1 bone", "2 bones".
std::string Counted(long long count, const char* singular, const char* plural);

}  // namespace lipvane::check
