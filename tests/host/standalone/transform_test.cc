#include "lipvane/host/standalone/transform.h"

#include <Imath/ImathEuler.h>
#include <Imath/ImathMatrix.h>
#include <Imath/ImathQuat.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <random>
#include <utility>
#include <vector>

namespace lipvane::standalone {
namespace {

using Imath::Eulerd;
using Imath::M44d;
using Imath::V3d;

constexpr double kPi = 3.14159265358979323846;

struct Order {
  RotateOrder ours;
  Eulerd::Order reference;
  std::array<std::size_t, 3> axes;
};

const std::vector<Order> kOrders{
    {RotateOrder::kXyz, Eulerd::XYZ, {0, 1, 2}}, {RotateOrder::kYzx, Eulerd::YZX, {1, 2, 0}},
    {RotateOrder::kZxy, Eulerd::ZXY, {2, 0, 1}}, {RotateOrder::kXzy, Eulerd::XZY, {0, 2, 1}},
    {RotateOrder::kYxz, Eulerd::YXZ, {1, 0, 2}}, {RotateOrder::kZyx, Eulerd::ZYX, {2, 1, 0}}};

M44d Rotated(const Vector& angles, const Order& order = kOrders[0]) {
  const auto& axes = order.axes;
  return Eulerd(angles[axes[0]], angles[axes[1]], angles[axes[2]], order.reference).toMatrix44();
}

M44d Translated(const Vector& v) {
  return M44d().setTranslation(V3d(v[0], v[1], v[2]));
}
M44d Scaled(const Vector& v) {
  return M44d().setScale(V3d(v[0], v[1], v[2]));
}
M44d Sheared(const Vector& v) {
  return M44d().setShear(V3d(v[0], v[1], v[2]));
}

M44d Reference(const host::Matrix& matrix) {
  M44d reference;
  for (std::size_t i = 0; i < 16; ++i)
    reference.getValue()[i] = matrix[i / 4][i % 4];
  return reference;
}

void ExpectMatrix(const M44d& actual, const M44d& expected, double tolerance = 1e-11) {
  EXPECT_TRUE(actual.equalWithAbsError(expected, tolerance)) << actual << "instead of\n"
                                                             << expected;
}

/// Scale and Euler angles together make the upper rows of the matrix.
M44d Recomposed(const host::Matrix& matrix) {
  return Scaled(Decompose(matrix).scale) * Rotated(EulerAngles(matrix));
}

class TransformTest : public testing::Test {
 protected:
  double Number(double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random_);
  }
  Vector Numbers(double low, double high) {
    return {Number(low, high), Number(low, high), Number(low, high)};
  }
  /// Every value set, those that must not count included.
  TransformValues Values(RotateOrder order) {
    TransformValues values;
    values.rotateOrder = order;
    for (Vector* angles : {&values.rotate, &values.rotateAxis, &values.jointOrient}) {
      *angles = Numbers(-7, 7);
    }
    for (Vector* lengths :
         {&values.translate, &values.scale, &values.shear, &values.rotatePivot,
          &values.rotatePivotTranslate, &values.scalePivot, &values.scalePivotTranslate}) {
      *lengths = Numbers(-3, 3);
    }
    values.inverseScale = Numbers(0.3, 3);
    return values;
  }

 private:
  std::mt19937 random_{20};
};

TEST_F(TransformTest, QuaternionsOfAllSixOrders) {
  for (const Order& order : kOrders) {
    for (int i = 0; i < 50; ++i) {
      const Vector angles = Numbers(-7, 7);
      const host::Rotation q = RotationFromEuler(angles, order.ours);
      ExpectMatrix(Imath::Quatd(q.w, q.x, q.y, q.z).toMatrix44(), Rotated(angles, order));
    }
  }
}

TEST_F(TransformTest, LocalMatricesOfJointsAndTransforms) {
  for (const Order& order : kOrders) {
    for (int i = 0; i < 20; ++i) {
      TransformValues values = Values(order.ours);
      const M44d rotations = Rotated(values.rotateAxis) * Rotated(values.rotate, order);
      ExpectMatrix(Reference(LocalMatrix(values)),
                   Translated(values.scalePivot).inverse() * Scaled(values.scale) *
                       Sheared(values.shear) * Translated(values.scalePivot) *
                       Translated(values.scalePivotTranslate) *
                       Translated(values.rotatePivot).inverse() * rotations *
                       Translated(values.rotatePivot) * Translated(values.rotatePivotTranslate) *
                       Translated(values.translate));
      values.isJoint = true;
      values.segmentScaleCompensate = i % 2 == 0;
      M44d joint = Scaled(values.scale) * rotations * Rotated(values.jointOrient);
      if (values.segmentScaleCompensate) joint *= Scaled(values.inverseScale).inverse();
      ExpectMatrix(Reference(LocalMatrix(values)), joint * Translated(values.translate));
    }
  }
  TransformValues underFlatParent;
  underFlatParent.isJoint = true;
  underFlatParent.inverseScale = {2, 0, -0.0};
  ExpectMatrix(Reference(LocalMatrix(underFlatParent)), Scaled({0.5, 1, 1}));
}

TEST_F(TransformTest, DecomposesWhatWasComposed) {
  for (int i = 0; i < 200; ++i) {
    TransformValues values;
    values.translate = Numbers(-10, 10);
    values.rotate = {Number(-3, 3), Number(-1.5, 1.5), Number(-3, 3)};
    values.scale = {Number(0.1, 3), Number(0.1, 3), Number(0.1, 3) * (i % 2 == 0 ? -1 : 1)};
    values.shear = Numbers(-2, 2);
    const host::Matrix matrix = LocalMatrix(values);
    const host::Transformation parts = Decompose(matrix);
    EXPECT_EQ(parts.matrix, matrix);
    EXPECT_EQ(parts.translation, values.translate);
    ExpectMatrix(Scaled(parts.scale), Scaled(values.scale), 1e-10);
    ExpectMatrix(Translated(EulerAngles(matrix)), Translated(values.rotate), 1e-8);
  }
}

TEST_F(TransformTest, MirroredAndFlatMatrices) {
  std::vector<std::pair<Vector, Vector>> cases = {{{-2, 3, 4}, {2, 3, -4}},
                                                  {{2, -3, 4}, {2, 3, -4}},
                                                  {{2, 3, -4}, {2, 3, -4}},
                                                  {{-2, -3, -4}, {2, 3, -4}},
                                                  {{-2, -3, 4}, {2, 3, 4}}};
  for (const Vector& flat :
       {Vector{0, 2, 2}, {2, 0, 2}, {2, 2, 0}, {0, 0, 2}, {0, 2, 0}, {2, 0, 0}, {0, 0, 0}}) {
    cases.emplace_back(flat, flat);
  }
  for (const auto& [given, expected] : cases) {
    TransformValues values;
    values.rotate = {0.3, -0.4, 0.5};
    values.scale = given;
    const host::Matrix matrix = LocalMatrix(values);
    ExpectMatrix(Scaled(Decompose(matrix).scale), Scaled(expected), 1e-12);
    ExpectMatrix(Recomposed(matrix), Reference(matrix));
  }
}

TEST_F(TransformTest, DegenerateMatricesGiveARotation) {
  using Row = std::array<double, 4>;
  for (const host::Matrix& matrix : {
           host::Matrix{Row{0, 1, 0}, Row{}, Row{}},             // x lies along y
           {Row{1, 2, 3}, Row{2, 4, 6}, Row{0, 0, 1}},           // two are parallel
           {Row{1, 2, 3}, Row{.1, .2, .3}, Row{-3, -6, -9}},     // all are
           {Row{1e-200}, Row{0, 1e-200, 0}, Row{0, 0, 1e-200}},  // squares underflow
           {Row{1e200}, Row{0, 1e200, 0}, Row{0, 0, 1e200}},     // squares overflow
       }) {
    // Row 0 is never sheared, so that it comes back.
    const M44d again = Recomposed(matrix);
    for (std::size_t i = 0; i < 3; ++i) {
      EXPECT_NEAR(again[0][i], matrix[0][i], 1e-12 * std::max(1.0, matrix[0][0])) << again;
    }
    EXPECT_GT(Decompose(matrix).scale[0], 0);
  }
}

// What reaches the host has been through single precision, which is where x and z go astray.
TEST_F(TransformTest, EulerAnglesNearTheLockStandSinglePrecision) {
  for (int i = 0; i < 1000; ++i) {
    const double off = i % 10 == 0 ? 0 : std::pow(10.0, Number(-9, -2));
    const double middle = (kPi / 2 - off) * (i % 2 == 0 ? 1 : -1);
    const M44d expected = Rotated({Number(-3, 3), middle, Number(-3, 3)});
    host::Matrix rounded;
    for (std::size_t k = 0; k < 16; ++k) {
      rounded[k / 4][k % 4] = expected.getValue()[k] + Number(-6e-8, 6e-8);
    }
    const Vector angles = EulerAngles(rounded);
    ExpectMatrix(Rotated(angles), expected, 5e-6);
    if (off == 0) {
      EXPECT_EQ(angles[2], 0);
    }
  }
}

}  // namespace
}  // namespace lipvane::standalone
