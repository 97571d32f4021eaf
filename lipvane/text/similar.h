#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lipvane::text {

/// No longer word is compared: names from files may be of any length.
inline constexpr std::size_t kLongestCompared = 64;

/// What a misspelt word most likely means: the candidate that the fewest slips lead to, the first
/// of equals. A slip is a letter too many, too few or another, or two letters swapped; the case of
/// letters is none. Nothing when more than every third letter, or three, would be slips.
std::optional<std::string> Nearest(std::string_view word,
                                   const std::vector<std::string>& candidates);

/// The end of a sentence on an unknown word: "; did you mean "jaw"?", or nothing.
std::string DidYouMean(std::string_view word, const std::vector<std::string>& candidates);

}  // namespace lipvane::text
