#pragma once

#include <cstring>
#include <string>
#include <vector>

#include "lipvane/engine/bone_pose.h"

namespace lipvane::test {

/// To compare bones bit for bit: a zero's sign, what is no number and the index count.
inline std::string Bytes(const std::vector<TIndexedBone>& bones) {
  std::string bytes(bones.size() * sizeof(TIndexedBone), '\0');
  std::memcpy(bytes.data(), bones.data(), bytes.size());
  return bytes;
}

}  // namespace lipvane::test
