#pragma once

#include <cstddef>
#include <string>

namespace lipvane::bench::naive {

/// Reads a whole file into memory with fread and counts its line feeds; 0 when it cannot be read.
std::size_t ReadAndCountLineFeeds(const std::string& fileName);

}  // namespace lipvane::bench::naive
