#include "lipvane/engine/math.h"

#include <gtest/gtest.h>

#include <Imath/ImathMatrix.h>
#include <Imath/ImathQuat.h>
#include <Imath/ImathVec.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace lipvane {
namespace {

constexpr float kClose = 2e-6F;
constexpr float kPi = 3.14159265F;

Imath::V3f Reference(const Vector3& v) {
  return {v.x, v.y, v.z};
}
Imath::Quatf Reference(const Quaternion& q) {
  return {q.w, q.x, q.y, q.z};
}
Imath::M44f Reference(const Matrix4& matrix) {
  Imath::M44f reference;
  std::copy_n(matrix.m, 16, reference.getValue());
  return reference;
}

/// For vectors and matrices.
template <typename T, typename Expected>
void ExpectNear(const T& actual, const Expected& expected, float tolerance = kClose) {
  EXPECT_TRUE(Reference(actual).equalWithAbsError(expected, tolerance))
      << Reference(actual) << " instead of " << expected;
}
void ExpectNear(const Quaternion& actual, const Imath::Quatf& expected) {
  EXPECT_NEAR(actual.w, expected.r, kClose);
  ExpectNear(Vector3(actual.x, actual.y, actual.z), expected.v);
}

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

TEST_F(MathTest, LengthsOfVectors) {
  Vector3 v(0, 3, -4);
  EXPECT_EQ(Vector3(3e30F, 4e30F, 0).Length(), 5e30F);
  ExpectNear(v.Normalized(), Imath::V3f(0, 0.6F, -0.8F));
  v.SetLength(10);
  EXPECT_EQ(v, Vector3(0, 6, -8));

  Vector3 zero;
  zero.SetLength(5);
  EXPECT_EQ(zero, Vector3());
  EXPECT_EQ(zero.Normalized(), Vector3());
}

TEST_F(MathTest, NormaliseFallsBackToTheIdentity) {
  const auto normalised = [](Quaternion q) {
    q.Normalize();
    return q;
  };
  EXPECT_EQ(normalised({0, 3, 0, -4}), Quaternion(0, 0.6F, 0, -0.8F));
  EXPECT_EQ(normalised({0, 0, 0, 0}), Quaternion());
  EXPECT_EQ(normalised({1, NAN, 0, 0}), Quaternion());
  for (const float extreme : {1e-30F, 3e38F}) {  // whose squares vanish or overflow
    ExpectNear(normalised({0, extreme, 0, extreme}), {0, std::sqrt(0.5F), 0, std::sqrt(0.5F)});
  }
}

TEST_F(MathTest, AxisAngleTurnsBackwards) {
  ExpectNear(Quaternion::FromAxisAngle(0.7F, 1, -2, 3),
             Imath::Quatf().setAxisAngle({1, -2, 3}, -0.7F));
  EXPECT_EQ(Quaternion::FromAxisAngle(1, 1.1920929e-7F, 0, 0), Quaternion());
  EXPECT_NE(Quaternion::FromAxisAngle(1, 1.2e-7F, 0, 0), Quaternion());
}

TEST_F(MathTest, ProductAndInverse) {
  for (int n = 0; n < 20; ++n) {
    const Quaternion a = RandomRotation();
    const Quaternion b = RandomRotation();
    ExpectNear(Quaternion::Multiply(a, b), Reference(a) * Reference(b));
    ExpectNear(Quaternion::Multiply(a.Inverse(), a), {-1, 0, 0, 0});
    Quaternion conjugate = a;
    conjugate.Conjugate();
    ExpectNear(Quaternion::Multiply(a, conjugate), {1, 0, 0, 0});
  }
  Quaternion square(0, 1, 0, 0);
  square *= square;
  EXPECT_EQ(square, Quaternion(-1, 0, 0, 0));
}

TEST_F(MathTest, ExponentialOfRotationVectors) {
  Quaternion q(5, 0, 1.2F, -0.5F);
  q.Exp();
  ExpectNear(q, Imath::Quatf(0, 0, 1.2F, -0.5F).exp());
  Quaternion small(0, 0, 0.00005F, 0);
  small.Exp();
  EXPECT_EQ(small, Quaternion(1, 0, 0.00005F, 0));
}

TEST_F(MathTest, AlignHemisphereLeavesWhatIsAsNearAsItsNegation) {
  Quaternion square(0, -1, 0, 0);
  Quaternion::AlignHemisphere(square, Quaternion());
  EXPECT_EQ(square, Quaternion(0, -1, 0, 0));
}

TEST_F(MathTest, Slerp) {
  for (int n = 0; n < 20; ++n) {
    const Quaternion a = RandomRotation();
    const Quaternion b = RandomRotation();
    const float t = Random(0, 1);
    ExpectNear(Quaternion::Slerp(a, b, t), Imath::slerpShortestArc(Reference(a), Reference(b), t));
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

TEST_F(MathTest, MatricesOfRotations) {
  for (int n = 0; n < 20; ++n) {
    const Quaternion q = RandomRotation();
    const Imath::M44f expected = Reference(q).toMatrix44();
    Matrix4 matrix = RandomProjective();
    q.ToMatrix4Transposed(matrix);
    ExpectNear(matrix, expected);
    EXPECT_EQ(matrix.flags, Matrix4::kAffine);
    matrix = RandomProjective();
    q.ToMatrix4(matrix);
    ExpectNear(matrix, expected.transposed());
    EXPECT_EQ(matrix.flags, Matrix4::kAffine);

    float nine[9];
    q.ToMatrix3(nine);
    for (const int i : {1, 2, 3, 5, 6, 7}) {
      EXPECT_NEAR(nine[i], expected[i / 3][i % 3], kClose);
    }
    EXPECT_NEAR(nine[0], 1 - 2 * q.y * q.y + 2 * q.z * q.z, kClose);
    EXPECT_NEAR(nine[4], 1 - 2 * q.x * q.x + 2 * q.z * q.z, kClose);
    EXPECT_NEAR(nine[8], 1 - 2 * q.x * q.x + 2 * q.y * q.y, kClose);
  }
}

TEST_F(MathTest, StepsAreAppliedAfterTheMatrix) {
  Matrix4 matrix;
  matrix.flags = Matrix4::kIdentity | Matrix4::kAffine;
  matrix.Translate({0, 0, 0});
  matrix.Scale({1, 1, 1});
  EXPECT_EQ(matrix.flags, Matrix4::kIdentity | Matrix4::kAffine);

  Imath::M44f expected;
  const auto expectAfter = [&](const Imath::M44f& step) {
    expected = expected * step;
    ExpectNear(matrix, expected);
    EXPECT_EQ(matrix.flags, Matrix4::kAffine);
    matrix.flags |= Matrix4::kIdentity;  // each step has to clear it
  };
  matrix.Translate({1, 2, 3});
  expectAfter(Imath::M44f().translate(Imath::V3f(1, 2, 3)));
  matrix.RotateX(0.3F);
  expectAfter(Imath::M44f().setAxisAngle({1, 0, 0}, 0.3F));
  matrix.Scale({2, -1, 0.5F});
  expectAfter(Imath::M44f().scale(Imath::V3f(2, -1, 0.5F)));
  matrix.RotateY(-0.8F);
  expectAfter(Imath::M44f().setAxisAngle({0, 1, 0}, -0.8F));
  matrix.RotateZ(2.5F);
  expectAfter(Imath::M44f().setAxisAngle({0, 0, 1}, 2.5F));
}

TEST_F(MathTest, MatrixProducts) {
  const Matrix4 affine = RandomAffine();
  const Matrix4 projective = RandomProjective();
  for (const Matrix4& a : {affine, projective}) {
    for (const Matrix4& b : {RandomAffine(), projective}) {
      const Matrix4 product = Matrix4::Multiply(a, b);
      ExpectNear(product, Reference(a) * Reference(b), 4e-5F);
      EXPECT_EQ(product.flags, a.flags & b.flags);
    }
  }
  // The flag alone makes an identity.
  Matrix4 flagged = affine;
  flagged.flags |= Matrix4::kIdentity;
  ExpectNear(Matrix4::Multiply(flagged, projective), Reference(projective), 0);
  ExpectNear(Matrix4::Multiply(projective, flagged), Reference(projective), 0);
}

TEST_F(MathTest, MatrixInverse) {
  for (int n = 0; n < 20; ++n) {
    const Matrix4 matrix = RandomAffine();
    Matrix4 inverse;
    ASSERT_TRUE(matrix.Inverse(inverse));
    ExpectNear(inverse, Reference(matrix).inverse(), 1e-5F);
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
  Matrix4 affine = RandomAffine();
  const Matrix4 projective = RandomProjective();
  ExpectNear(affine.TransformPoint(p), Reference(p) * Reference(affine));
  ExpectNear(projective.TransformPoint(p), Reference(p) * Reference(projective));

  Imath::V3f expected;
  Reference(affine).multDirMatrix(Reference(p), expected);
  ExpectNear(affine.TransformVector(p), expected);
  // A vector leaves the translation out of the sum, but not out of the divisor.
  Imath::M44f untranslated = Reference(projective);
  untranslated[3][0] = untranslated[3][1] = untranslated[3][2] = 0;
  ExpectNear(projective.TransformVector(p), Reference(p) * untranslated);

  affine.flags |= Matrix4::kIdentity;
  EXPECT_EQ(affine.TransformPoint(p), p);
  EXPECT_EQ(affine.TransformVector(p), p);
}

}  // namespace
}  // namespace lipvane
