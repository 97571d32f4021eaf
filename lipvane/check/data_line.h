#pragma once

#include <cstddef>
#include <string_view>

namespace lipvane::check {

/// A line that holds data, as the readers see it. A view into the file's text.
struct DataLine {
  std::size_t number = 0;  ///< from 1; 0 when there is no such line
  std::string_view text;
};

/// What is said of one that holds white space alone.
inline constexpr const char* kBlankLineText =
    "this line holds white space alone, or before a comment: it is taken for data";

}  // namespace lipvane::check
