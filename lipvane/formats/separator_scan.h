#pragma once

#include <cstddef>
#include <string_view>

namespace lipvane {

/// The place behind the `count`-th separator of a text, of which no two stand together and none at
/// the start; npos when there are fewer, or when before that two do or one does.
std::size_t BehindSeparators(std::string_view text, char separator, int count);

}  // namespace lipvane
