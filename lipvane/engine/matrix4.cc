#include <cmath>

#include "lipvane/engine/math.h"

namespace lipvane {
namespace {

constexpr double kSingular = 1e-12;

bool IsIdentity(const Matrix4& matrix) {
  return (matrix.flags & Matrix4::kIdentity) != 0;
}
bool IsAffine(const Matrix4& matrix) {
  return (matrix.flags & Matrix4::kAffine) != 0;
}

/// Rotates columns `u` and `v` of every row, u towards v.
void RotateColumns(Matrix4& matrix, int u, int v, float angle) {
  const float cosine = std::cos(angle);
  const float sine = std::sin(angle);
  for (int row = 0; row < 16; row += 4) {
    const float first = matrix.m[row + u];
    const float second = matrix.m[row + v];
    matrix.m[row + u] = first * cosine - second * sine;
    matrix.m[row + v] = second * cosine + first * sine;
  }
  matrix.flags &= ~Matrix4::kIdentity;
}

/// (x, y, z, w) * M, divided by the projective coordinate when there is one; w is 1 for a point and
/// 0 for a vector, and the projective coordinate is that of the point in both cases.
Vector3 Transform(const Matrix4& matrix, const Vector3& p, float w) {
  if (IsIdentity(matrix)) {
    return p;
  }
  const float* m = matrix.m;
  const Vector3 product(p.x * m[0] + p.y * m[4] + p.z * m[8] + w * m[12],
                        p.x * m[1] + p.y * m[5] + p.z * m[9] + w * m[13],
                        p.x * m[2] + p.y * m[6] + p.z * m[10] + w * m[14]);
  if (IsAffine(matrix)) {
    return product;
  }
  const float divisor = p.x * m[3] + p.y * m[7] + p.z * m[11] + m[15];
  return {product.x / divisor, product.y / divisor, product.z / divisor};
}

}  // namespace

Matrix4 Matrix4::Multiply(const Matrix4& a, const Matrix4& b) {
  if (IsIdentity(a)) {
    return b;
  }
  if (IsIdentity(b)) {
    return a;
  }
  const bool affine = IsAffine(a) && IsAffine(b);
  const int columns = affine ? 3 : 4;
  Matrix4 result;  // its last column is that of an affine matrix already
  for (int row = 0; row < 16; row += 4) {
    for (int column = 0; column < columns; ++column) {
      float sum = 0.0F;
      for (int k = 0; k < 4; ++k) {
        sum += a.m[row + k] * b.m[4 * k + column];
      }
      result.m[row + column] = sum;
    }
  }
  result.flags = affine ? kAffine : 0;
  return result;
}

void Matrix4::Translate(const Vector3& v) {
  if (v == Vector3()) {
    return;
  }
  m[12] += v.x;
  m[13] += v.y;
  m[14] += v.z;
  flags &= ~kIdentity;
}

void Matrix4::Scale(const Vector3& s) {
  if (s == Vector3(1, 1, 1)) {
    return;
  }
  for (int row = 0; row < 16; row += 4) {
    m[row] *= s.x;
    m[row + 1] *= s.y;
    m[row + 2] *= s.z;
  }
  flags &= ~kIdentity;
}

void Matrix4::RotateX(float a) {
  RotateColumns(*this, 1, 2, a);
}

void Matrix4::RotateY(float a) {
  RotateColumns(*this, 2, 0, a);
}

void Matrix4::RotateZ(float a) {
  RotateColumns(*this, 0, 1, a);
}

bool Matrix4::Inverse(Matrix4& out) const {
  const double a = m[0], b = m[1], c = m[2];
  const double d = m[4], e = m[5], f = m[6];
  const double g = m[8], h = m[9], i = m[10];
  const double cofactor0 = e * i - f * h;
  const double cofactor1 = f * g - d * i;
  const double cofactor2 = d * h - e * g;
  const double determinant = a * cofactor0 + b * cofactor1 + c * cofactor2;
  if (std::abs(determinant) < kSingular) {
    return false;
  }
  const double inverse[9] = {
      cofactor0 / determinant, (c * h - b * i) / determinant, (b * f - c * e) / determinant,
      cofactor1 / determinant, (a * i - c * g) / determinant, (c * d - a * f) / determinant,
      cofactor2 / determinant, (b * g - a * h) / determinant, (a * e - b * d) / determinant};
  Matrix4 result;
  for (int column = 0; column < 3; ++column) {
    double translation = 0.0;
    for (int row = 0; row < 3; ++row) {
      const double element = inverse[3 * row + column];
      result.m[4 * row + column] = static_cast<float>(element);
      translation -= m[12 + row] * element;
    }
    result.m[12 + column] = static_cast<float>(translation);
  }
  result.flags = kAffine;
  out = result;
  return true;
}

Vector3 Matrix4::TransformPoint(const Vector3& p) const {
  return Transform(*this, p, 1.0F);
}

Vector3 Matrix4::TransformVector(const Vector3& p) const {
  return Transform(*this, p, 0.0F);
}

}  // namespace lipvane
