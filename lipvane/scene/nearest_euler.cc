#include "lipvane/scene/nearest_euler.h"

#include <cmath>
#include <cstddef>

namespace lipvane::scene {
namespace {

using Euler = std::array<double, 3>;

constexpr double kPi = 3.14159265358979323846;

/// Below this cosine of y, x and z cannot be told apart: rotations come from single-precision
/// quaternions. Hosts give all of the turn to one of them a little before.
constexpr double kLock = 4e-6;

/// Unchanged to the last bit when it is within half a turn.
double NearestTurn(double angle, double previous) {
  return angle + 2.0 * kPi * std::round((previous - angle) / (2.0 * kPi));
}

Euler NearestTurns(const Euler& angles, const Euler& previous) {
  Euler nearest{};
  for (std::size_t axis = 0; axis < 3; ++axis)
    nearest[axis] = NearestTurn(angles[axis], previous[axis]);
  return nearest;
}

double SquaredDistance(const Euler& a, const Euler& b) {
  double sum = 0.0;
  for (std::size_t axis = 0; axis < 3; ++axis)
    sum += (a[axis] - b[axis]) * (a[axis] - b[axis]);
  return sum;
}

/// At the lock only x - z counts, or x + z where y is negative.
Euler NearestAtLock(const Euler& angles, const Euler& previous) {
  const double side = std::sin(angles[1]) > 0.0 ? 1.0 : -1.0;
  const double before = previous[0] - side * previous[2];
  const double change = NearestTurn(angles[0] - side * angles[2], before) - before;
  return {previous[0] + change / 2.0, NearestTurn(angles[1], previous[1]),
          previous[2] - side * change / 2.0};
}

}  // namespace

Euler NearestEuler(const Euler& angles, const Euler& previous) {
  if (std::abs(std::cos(angles[1])) < kLock) return NearestAtLock(angles, previous);
  const Euler same = NearestTurns(angles, previous);
  const Euler flipped = NearestTurns({angles[0] + kPi, kPi - angles[1], angles[2] + kPi}, previous);
  return SquaredDistance(flipped, previous) < SquaredDistance(same, previous) ? flipped : same;
}

}  // namespace lipvane::scene
