#pragma once

#include <cstddef>
#include <string>

namespace lipvane::bench {

/// Writes a Maya ASCII scene of at least so many bytes: a chain of keyed joints, and for the rest
/// meshes.
void WriteMeshScene(const std::string& fileName, std::size_t bytes);

}  // namespace lipvane::bench
