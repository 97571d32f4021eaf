#pragma once

#include <array>

namespace lipvane::scene {

/// Of all Euler triples (radians, about x, then y, then z) that mean the same rotation, the one
/// nearest to another triple: whole turns are added, the flipped triple (x + pi, pi - y, z + pi) is
/// tried, and where the rotation leaves x and z free to share a turn (y at a right angle), both
/// move as little as they can.
std::array<double, 3> NearestEuler(const std::array<double, 3>& angles,
                                   const std::array<double, 3>& previous);

}  // namespace lipvane::scene
