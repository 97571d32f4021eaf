#include "lipvane/engine/math.h"

#include <gtest/gtest.h>

#include <Imath/ImathMatrix.h>
#include <Imath/ImathQuat.h>
#include <Imath/ImathVec.h>

#include <cmath>
#include <random>

namespace lipvane {
namespace {

constexpr float kClose = 2e-6F;
constexpr float kPi = 3.14159265F;

class MathTest : public testing::Test {
 protected:
  float Random(float low, float high) {
    return std::uniform_real_distribution<float>(low, high)(engine_);
  }
  Vector3 RandomVector() { return {Random(-2, 2), Random(-2, 2), Random(-2, 2)}; }
  Quaternion RandomRotation() {
    Quaternion q(Random(-1, 1), Random(-1, 1), Random(-1, 1), Random(-1, 1));
    q.Normalize();
    return q;
  }
  Matrix4 RandomAffine() {
    Matrix4 matrix;
    matrix.RotateX(Random(-kPi, kPi));
    matrix.Scale({Random(0.5F, 2), Random(0.5F, 2), Random(-2, -0.5F)});
    matrix.RotateZ(Random(-kPi, kPi));
    matrix.Translate(RandomVector());
    return matrix;
  }
  Matrix4 RandomProjective() {
    Matrix4 matrix;
    for (float& element : matrix.m) {
      element = Random(-2, 2);
    }
    matrix.m[15] = 20;
    matrix.flags = 0;
    return matrix;
  }

 private:
  std::mt19937 engine_{20};
};

Imath::M44f Reference(const Matrix4& matrix) {
  Imath::M44f reference;
  for (int i = 0; i < 16; ++i) {
    reference[i / 4][i % 4] = matrix.m[i];
  }
  return reference;
}

Imath::Quatf Reference(const Quaternion& q) {
  return {q.w, q.x, q.y, q.z};
}

void ExpectMatrix(const Matrix4& actual, const Imath::M44f& expected, float tolerance = kClose) {
  for (int i = 0; i < 16; ++i) {
    EXPECT_NEAR(actual.m[i], expected[i / 4][i % 4], tolerance) << "element " << i;
  }
}

void ExpectQuaternion(const Quaternion& actual, const Quaternion& expected) {
  EXPECT_NEAR(actual.w, expected.w, kClose);
  EXPECT_NEAR(actual.x, expected.x, kClose);
  EXPECT_NEAR(actual.y, expected.y, kClose);
  EXPECT_NEAR(actual.z, expected.z, kClose);
}

void ExpectVector(const Vector3& actual, const Imath::V3f& expected, float tolerance = kClose) {
  EXPECT_NEAR(actual.x, expected.x, tolerance);
  EXPECT_NEAR(actual.y, expected.y, tolerance);
  EXPECT_NEAR(actual.z, expected.z, tolerance);
}

TEST_F(MathTest, LengthsOfVectors) {
  Vector3 v(0, 3, -4);
  EXPECT_EQ(v.Length(), 5.0F);
  EXPECT_EQ(Vector3(3e30F, 4e30F, 0).Length(), 5e30F);
  ExpectVector(v.Normalized(), {0, 0.6F, -0.8F});
  v.SetLength(10);
  EXPECT_EQ(v, Vector3(0, 6, -8));

  Vector3 zero;
  zero.SetLength(5);
  EXPECT_EQ(zero, Vector3());
  EXPECT_EQ(zero.Normalized(), Vector3());
}

TEST_F(MathTest, NormaliseFallsBackToTheIdentity) {
  Quaternion q(0, 3, 0, -4);
  q.Normalize();
  EXPECT_EQ(q, Quaternion(0, 0.6F, 0, -0.8F));
  Quaternion zero(0, 0, 0, 0);
  zero.Normalize();
  EXPECT_EQ(zero, Quaternion());
  Quaternion nan(1, NAN, 0, 0);
  nan.Normalize();
  EXPECT_EQ(nan, Quaternion());
  for (const float extreme : {1e-30F, 3e38F}) {  // whose squares vanish or overflow
    Quaternion tilted(0, extreme, 0, extreme);
    tilted.Normalize();
    EXPECT_NEAR(tilted.x, std::sqrt(0.5F), kClose);
    EXPECT_NEAR(tilted.z, std::sqrt(0.5F), kClose);
  }
}

TEST_F(MathTest, AxisAngleTurnsBackwards) {
  ExpectQuaternion(Quaternion::FromAxisAngle(kPi / 2, 0, 0, 7),
                   {std::cos(kPi / 4), 0, 0, -std::sin(kPi / 4)});
  EXPECT_EQ(Quaternion::FromAxisAngle(1, 1.1920929e-7F, 0, 0), Quaternion());
  EXPECT_NE(Quaternion::FromAxisAngle(1, 1.2e-7F, 0, 0), Quaternion());
  // Its matrix turns forwards, as the two reversals cancel out.
  const Vector3 axis = RandomVector();
  Matrix4 matrix;
  Quaternion::FromAxisAngle(0.7F, axis.x, axis.y, axis.z).ToMatrix4(matrix);
  Imath::M44f expected;
  expected.setAxisAngle({axis.x, axis.y, axis.z}, 0.7F);
  ExpectMatrix(matrix, expected);
}

TEST_F(MathTest, ProductAndInverse) {
  for (int n = 0; n < 20; ++n) {
    const Quaternion a = RandomRotation();
    const Quaternion b = RandomRotation();
    const Imath::Quatf expected = Reference(a) * Reference(b);
    Quaternion product = a;
    product *= b;
    ExpectQuaternion(product, {expected.r, expected.v.x, expected.v.y, expected.v.z});
    EXPECT_EQ(Quaternion::Multiply(a, b), product);

    ExpectQuaternion(Quaternion::Multiply(a.Inverse(), a), {-1, 0, 0, 0});
    Quaternion conjugate = a;
    conjugate.Conjugate();
    ExpectQuaternion(Quaternion::Multiply(a, conjugate), {1, 0, 0, 0});
  }
  Quaternion square(0, 1, 0, 0);
  square *= square;
  EXPECT_EQ(square, Quaternion(-1, 0, 0, 0));
}

TEST_F(MathTest, ExponentialOfRotationVectors) {
  Quaternion q(5, 0, 1.2F, -0.5F);
  q.Exp();
  const Imath::Quatf expected = Imath::Quatf(0, 0, 1.2F, -0.5F).exp();
  ExpectQuaternion(q, {expected.r, expected.v.x, expected.v.y, expected.v.z});
  Quaternion small(0, 0, 0.00005F, 0);
  small.Exp();
  EXPECT_EQ(small, Quaternion(1, 0, 0.00005F, 0));
}

TEST_F(MathTest, AlignHemisphereNegatesTheFarOne) {
  Quaternion far(-0.6F, 0, -0.8F, 0);
  Quaternion::AlignHemisphere(far, {0.8F, 0, 0.6F, 0});
  EXPECT_EQ(far, Quaternion(0.6F, 0, 0.8F, 0));
  Quaternion square(0, -1, 0, 0);  // as near as its negation: stays
  Quaternion::AlignHemisphere(square, Quaternion());
  EXPECT_EQ(square, Quaternion(0, -1, 0, 0));
}

TEST_F(MathTest, Slerp) {
  for (int n = 0; n < 20; ++n) {
    const Quaternion a = RandomRotation();
    const Quaternion b = RandomRotation();
    const float t = Random(0, 1);
    const Imath::Quatf expected = Imath::slerpShortestArc(Reference(a), Reference(b), t);
    ExpectQuaternion(Quaternion::Slerp(a, b, t),
                     {expected.r, expected.v.x, expected.v.y, expected.v.z});
    // Half-way twice is half of the half.
    const Quaternion half = Quaternion::Slerp(a, b, 0.5F);
    ExpectQuaternion(Quaternion::Slerp(a, half, 0.5F), Quaternion::Slerp(a, b, 0.25F));
    ExpectQuaternion(Quaternion::Slerp(a, {-a.w, -a.x, -a.y, -a.z}, t), a);
  }
  // On this side of the threshold the chord is cut, on that side the arc is followed.
  const auto middle = [](float cosine) {
    const Quaternion other(cosine, std::sqrt(1 - cosine * cosine), 0, 0);
    const Quaternion q = Quaternion::Slerp(Quaternion(), other, 0.5F);
    return double{q.w} * q.w + double{q.x} * q.x;
  };
  EXPECT_NEAR(middle(0.99991F), 1 - 4.5e-5, 2e-6);
  EXPECT_NEAR(middle(0.99989F), 1, 2e-6);
}

TEST_F(MathTest, RotationMatrices) {
  for (int n = 0; n < 20; ++n) {
    const Quaternion q = RandomRotation();
    const Imath::M44f expected = Reference(q).toMatrix44();
    Matrix4 matrix;
    q.ToMatrix4Transposed(matrix);
    ExpectMatrix(matrix, expected);
    EXPECT_EQ(matrix.flags, Matrix4::kAffine);
    q.ToMatrix4(matrix);
    ExpectMatrix(matrix, expected.transposed());
    EXPECT_EQ(matrix.flags, Matrix4::kAffine);
  }
}

TEST_F(MathTest, NineElementFormAddsTheSecondSquares) {
  float m[9];
  const Quaternion q = RandomRotation();
  const Imath::M44f rotation = Reference(q).toMatrix44();
  q.ToMatrix3(m);
  for (const int i : {1, 2, 3, 5, 6, 7}) {
    EXPECT_NEAR(m[i], rotation[i / 3][i % 3], kClose);
  }
  EXPECT_NEAR(m[0], 1 - 2 * q.y * q.y + 2 * q.z * q.z, kClose);
  EXPECT_NEAR(m[4], 1 - 2 * q.x * q.x + 2 * q.z * q.z, kClose);
  EXPECT_NEAR(m[8], 1 - 2 * q.x * q.x + 2 * q.y * q.y, kClose);
}

TEST_F(MathTest, StepsAreAppliedAfterTheMatrix) {
  Matrix4 matrix;
  matrix.flags = Matrix4::kIdentity | Matrix4::kAffine;
  matrix.Translate({0, 0, 0});
  matrix.Scale({1, 1, 1});
  EXPECT_EQ(matrix.flags, Matrix4::kIdentity | Matrix4::kAffine);

  Imath::M44f expected;
  const auto apply = [&](const Imath::M44f& step) {
    expected = expected * step;
    ExpectMatrix(matrix, expected);
    EXPECT_EQ(matrix.flags, Matrix4::kAffine);
    matrix.flags |= Matrix4::kIdentity;  // each step has to clear it
  };
  matrix.Translate({1, 2, 3});
  apply(Imath::M44f().translate(Imath::V3f(1, 2, 3)));
  matrix.RotateX(0.3F);
  apply(Imath::M44f().setAxisAngle({1, 0, 0}, 0.3F));
  matrix.Scale({2, -1, 0.5F});
  apply(Imath::M44f().scale(Imath::V3f(2, -1, 0.5F)));
  matrix.RotateY(-0.8F);
  apply(Imath::M44f().setAxisAngle({0, 1, 0}, -0.8F));
  matrix.RotateZ(2.5F);
  apply(Imath::M44f().setAxisAngle({0, 0, 1}, 2.5F));
}

TEST_F(MathTest, MatrixProducts) {
  const Matrix4 affine = RandomAffine();
  const Matrix4 other = RandomAffine();
  const Matrix4 projective = RandomProjective();
  const Matrix4 product = Matrix4::Multiply(affine, other);
  ExpectMatrix(product, Reference(affine) * Reference(other));
  EXPECT_EQ(product.flags, Matrix4::kAffine);
  for (const auto& [a, b] : {std::pair(affine, projective), std::pair(projective, affine)}) {
    const Matrix4 full = Matrix4::Multiply(a, b);
    ExpectMatrix(full, Reference(a) * Reference(b), 1e-5F);
    EXPECT_EQ(full.flags, 0);
  }
  // The flag alone makes an identity.
  Matrix4 flagged = other;
  flagged.flags |= Matrix4::kIdentity;
  ExpectMatrix(Matrix4::Multiply(flagged, projective), Reference(projective), 0);
  ExpectMatrix(Matrix4::Multiply(projective, flagged), Reference(projective), 0);
}

TEST_F(MathTest, MatrixInverse) {
  for (int n = 0; n < 20; ++n) {
    const Matrix4 matrix = RandomAffine();
    Matrix4 inverse;
    ASSERT_TRUE(matrix.Inverse(inverse));
    ExpectMatrix(inverse, Reference(matrix).inverse(), 1e-5F);
    ExpectMatrix(Matrix4::Multiply(inverse, matrix), Imath::M44f(), 1e-5F);
    EXPECT_EQ(inverse.flags, Matrix4::kAffine);
  }
  Matrix4 singular;
  singular.Scale({1e-4F, 1e-4F, 1e-5F});
  Matrix4 untouched;
  untouched.Translate({1, 2, 3});
  EXPECT_FALSE(singular.Inverse(untouched));
  EXPECT_EQ(untouched.m[13], 2);
  singular.Scale({1, 1, 20});
  EXPECT_TRUE(singular.Inverse(singular));
  EXPECT_NEAR(singular.m[0], 1e4F, 0.01F);
}

TEST_F(MathTest, TransformsOfPointsAndVectors) {
  const Vector3 p = RandomVector();
  const Imath::V3f source(p.x, p.y, p.z);
  const Matrix4 affine = RandomAffine();
  Imath::V3f expected;
  Reference(affine).multVecMatrix(source, expected);
  ExpectVector(affine.TransformPoint(p), expected);
  Reference(affine).multDirMatrix(source, expected);
  ExpectVector(affine.TransformVector(p), expected);

  const Matrix4 projective = RandomProjective();
  Reference(projective).multVecMatrix(source, expected);
  ExpectVector(projective.TransformPoint(p), expected);
  // A vector leaves the translation out of the sum, but not out of the divisor.
  Imath::M44f untranslated = Reference(projective);
  untranslated[3][0] = untranslated[3][1] = untranslated[3][2] = 0;
  untranslated.multVecMatrix(source, expected);
  ExpectVector(projective.TransformVector(p), expected);

  Matrix4 flagged = affine;
  flagged.flags |= Matrix4::kIdentity;
  EXPECT_EQ(flagged.TransformPoint(p), p);
  EXPECT_EQ(flagged.TransformVector(p), p);
}

}  // namespace
}  // namespace lipvane
