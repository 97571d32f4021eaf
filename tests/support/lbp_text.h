#pragma once

#include <array>
#include <string>
#include <vector>

namespace lipvane::test {

/// What a bone line says that is read back: a translation and a rotation as w, x, y, z.
struct BoneLine {
  std::array<double, 3> translation{0, 0, 0};
  std::array<double, 4> rotation{1, 0, 0, 0};
};

/// A bone pose file with one speech target and 43 phonemes; one pose is one bone line a bone.
std::string LbpText(const std::vector<std::string>& bones,
                    const std::vector<std::vector<BoneLine>>& poses);

}  // namespace lipvane::test
