#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>

#include "lipvane/text/numbers.h"

namespace lipvane::test {

/// Whether two texts of words and numbers, between blanks, commas and line ends, are the same but
/// for rounding: numbers to 1e-6, of their size where that is more than 1.
inline testing::AssertionResult SameButForRounding(std::string_view text, std::string_view golden) {
  constexpr std::string_view kBetween = " ,\n";
  const auto take = [&](std::string_view& from) {
    const std::string_view word = from.substr(0, from.find_first_of(kBetween));
    from.remove_prefix(std::min(word.size() + 1, from.size()));
    return word;
  };
  std::size_t place = 0;
  while (!text.empty() || !golden.empty()) {
    const std::string_view is = take(text);
    const std::string_view was = take(golden);
    ++place;
    if (is == was) continue;
    const auto a = text::WholeReal(is);
    const auto b = text::WholeReal(was);
    if (a && b && std::abs(*a - *b) <= 1e-6 * std::max(1.0, std::abs(*b))) continue;
    return testing::AssertionFailure()
           << "word " << place << " is \"" << is << "\" and was \"" << was << "\"";
  }
  return testing::AssertionSuccess();
}

}  // namespace lipvane::test
