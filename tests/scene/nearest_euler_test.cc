#include "lipvane/scene/nearest_euler.h"

#include <Imath/ImathEuler.h>
#include <Imath/ImathMatrix.h>
#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace lipvane::scene {
namespace {

using Euler = std::array<double, 3>;

constexpr double kPi = 3.14159265358979323846;

Imath::M44d Matrix(const Euler& angles) {
  return Imath::Eulerd(angles[0], angles[1], angles[2], Imath::Eulerd::XYZ).toMatrix44();
}

double Distance(const Euler& a, const Euler& b) {
  return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}

// The nearest of all that are written out: three turns each way, flipped or not.
double LeastDistance(const Euler& angles, const Euler& previous) {
  double least = 1e300;
  for (const Euler& triple : {angles, Euler{angles[0] + kPi, kPi - angles[1], angles[2] + kPi}}) {
    for (int turns = 0; turns < 7 * 7 * 7; ++turns) {
      const Euler moved = {triple[0] + 2 * kPi * (turns % 7 - 3),
                           triple[1] + 2 * kPi * (turns / 7 % 7 - 3),
                           triple[2] + 2 * kPi * (turns / 49 - 3)};
      least = std::min(least, Distance(moved, previous));
    }
  }
  return least;
}

TEST(NearestEuler, MeansTheSameRotationAndIsTheNearestThatDoes) {
  std::mt19937 random(3);
  std::uniform_real_distribution<double> angle(-kPi, kPi);
  std::uniform_real_distribution<double> far(-2 * kPi, 2 * kPi);
  for (int i = 0; i < 300; ++i) {
    const Euler angles = {angle(random), angle(random) / 2, angle(random)};
    const Euler previous = {far(random), far(random), far(random)};
    const Euler nearest = NearestEuler(angles, previous);
    EXPECT_TRUE(Matrix(nearest).equalWithAbsError(Matrix(angles), 1e-12));
    EXPECT_NEAR(Distance(nearest, previous), LeastDistance(angles, previous), 1e-9);
    EXPECT_EQ(NearestEuler(angles, angles), angles) << "to the last bit";
  }
}

TEST(NearestEuler, SharesTheTurnWhereXAndZAreOne) {
  for (const double y : {kPi / 2, -kPi / 2, kPi / 2 - 1e-8}) {
    const Euler previous = {0.5, y + 2 * kPi - 0.001, -1.25};
    for (const double turn : {-3.0, -0.1, 0.0, 2.5}) {
      const Euler nearest = NearestEuler({turn, y, 0.0}, previous);
      EXPECT_TRUE(Matrix(nearest).equalWithAbsError(Matrix({turn, y, 0.0}), 1e-7));
      EXPECT_NEAR(nearest[1], y + 2 * kPi, 1e-12);
      EXPECT_NEAR(std::abs(nearest[0] - 0.5), std::abs(nearest[2] + 1.25), 1e-12);
      EXPECT_LE(std::abs(nearest[0] - 0.5), kPi / 2 + 1e-12);
    }
  }
}

}  // namespace
}  // namespace lipvane::scene
