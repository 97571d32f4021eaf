#pragma once

#include <cstddef>
#include <string>
#include <vector>

/// Lists and counts in sentences.
namespace lipvane::text {

/// "a, b, c", and of a longer list than `most` "a, b and 7 more".
std::string Listed(const std::vector<std::string>& names, std::size_t most = 20);

/// "translateX", "translateX and translateY", "translateX, translateY and translateZ".
std::string JoinedNames(const std::vector<std::string>& names);

/// "1 bone", "2 bones".
std::string Counted(long long count, const char* singular, const char* plural);

}  // namespace lipvane::text
