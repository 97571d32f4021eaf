#pragma once

#include <cstddef>
#include <string>

namespace lipvane::bench::naive {

/// Reads a file piece by piece with fread and counts its line feeds; 0 when it cannot be read.
std::size_t CountLineFeeds(const std::string& fileName);

}  // namespace lipvane::bench::naive
