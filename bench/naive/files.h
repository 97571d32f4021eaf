#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace lipvane::bench::naive {

/// A bone line: matrix, translation, scale and rotation.
using BoneNumbers = std::array<double, 26>;

/// Reads the bone lines of a pose section, with nothing checked: the translation (16 to 18) and the
/// rotation (22 to 25) of each are appended, seven numbers a bone.
void ReadBoneLines(std::string_view section, std::vector<float>& numbers);

/// Writes poses, each with its title and a blank line after it, six significant digits a number,
/// into a buffer that has the room. Returns the length.
std::size_t WritePoses(const std::vector<std::vector<BoneNumbers>>& poses,
                       std::vector<char>& buffer);

/// Reads a file piece by piece with fread and counts its line feeds; 0 when it cannot be read.
std::size_t CountLineFeeds(const std::string& fileName);

}  // namespace lipvane::bench::naive
