#include <cmath>

#include "lipvane/engine/math.h"

namespace lipvane {
namespace {

constexpr double kShortestAxis = 1.1920928955078125e-7;  // the epsilon of float
constexpr double kSmallRotation = 0.0001;
constexpr double kSlerpLinear = 0.9998999834060669;  // 0.9999 as a float

float SquaredLength(float w, float x, float y, float z) {
  return w * w + x * x + y * y + z * z;
}

/// Normalises where the squares of floats overflow or vanish; without a length it is the identity.
void NormalizeExtreme(Quaternion& q) {
  const double length =
      std::sqrt(double{q.w} * q.w + double{q.x} * q.x + double{q.y} * q.y + double{q.z} * q.z);
  if (length == 0.0 || std::isnan(length)) {
    q = {};
    return;
  }
  q = {static_cast<float>(q.w / length), static_cast<float>(q.x / length),
       static_cast<float>(q.y / length), static_cast<float>(q.z / length)};
}

/// The products that all the matrix forms are made of, doubled.
struct Products {
  double xx, yy, zz, xy, xz, yz, wx, wy, wz;

  explicit Products(const Quaternion& q) {
    const double w = q.w;
    const double x = q.x;
    const double y = q.y;
    const double z = q.z;
    xx = 2 * x * x;
    yy = 2 * y * y;
    zz = 2 * z * z;
    xy = 2 * x * y;
    xz = 2 * x * z;
    yz = 2 * y * z;
    wx = 2 * w * x;
    wy = 2 * w * y;
    wz = 2 * w * z;
  }
};

float Single(double value) {
  return static_cast<float>(value);
}

}  // namespace

Quaternion Quaternion::FromAxisAngle(float angle, float ax, float ay, float az) {
  const double length = std::sqrt(double{ax} * ax + double{ay} * ay + double{az} * az);
  if (length <= kShortestAxis) {
    return {};
  }
  const double half = angle * -0.5;  // deliberately negated
  const double scale = std::sin(half) / length;
  Quaternion result(Single(std::cos(half)), Single(ax * scale), Single(ay * scale),
                    Single(az * scale));
  result.Normalize();
  return result;
}

Quaternion Quaternion::Multiply(const Quaternion& a, const Quaternion& b) {
  return {
      a.w * b.w - a.x * b.x - a.y * b.y - a.z * b.z, a.w * b.x + a.x * b.w + a.y * b.z - a.z * b.y,
      a.w * b.y - a.x * b.z + a.y * b.w + a.z * b.x, a.w * b.z + a.x * b.y - a.y * b.x + a.z * b.w};
}

Quaternion Quaternion::Slerp(const Quaternion& q1, const Quaternion& q2, float t) {
  double cosine =
      double{q1.w} * q2.w + double{q1.x} * q2.x + double{q1.y} * q2.y + double{q1.z} * q2.z;
  const bool opposite = cosine < 0;
  if (opposite) {
    cosine = -cosine;
  }
  double k1 = 1.0 - t;
  double k2 = t;
  if (cosine < kSlerpLinear) {
    const double angle = std::acos(cosine);
    const double sine = std::sin(angle);
    k1 = std::sin(k1 * angle) / sine;
    k2 = std::sin(k2 * angle) / sine;
  }
  if (opposite) {
    k2 = -k2;
  }
  return {Single(k1 * q1.w + k2 * q2.w), Single(k1 * q1.x + k2 * q2.x),
          Single(k1 * q1.y + k2 * q2.y), Single(k1 * q1.z + k2 * q2.z)};
}

void Quaternion::AlignHemisphere(Quaternion& a, const Quaternion& b) {
  if (SquaredLength(a.w + b.w, a.x + b.x, a.y + b.y, a.z + b.z) <
      SquaredLength(a.w - b.w, a.x - b.x, a.y - b.y, a.z - b.z)) {
    a = {-a.w, -a.x, -a.y, -a.z};
  }
}

Quaternion& Quaternion::operator*=(const Quaternion& b) {
  return *this = Multiply(*this, b);
}

void Quaternion::Normalize() {
  const float squared = SquaredLength(w, x, y, z);
  if (!std::isnormal(squared)) {
    NormalizeExtreme(*this);
    return;
  }
  const float length = std::sqrt(squared);
  w /= length;
  x /= length;
  y /= length;
  z /= length;
}

void Quaternion::Conjugate() {
  x = -x;
  y = -y;
  z = -z;
}

Quaternion Quaternion::Inverse() const {
  return {-w, x, y, z};
}

void Quaternion::Exp() {
  const double angle = std::sqrt(double{x} * x + double{y} * y + double{z} * z);
  const double scale = angle > kSmallRotation ? std::sin(angle) / angle : 1.0;
  *this = {Single(std::cos(angle)), Single(x * scale), Single(y * scale), Single(z * scale)};
}

void Quaternion::ToMatrix4(Matrix4& out) const {
  const Products p(*this);
  out = {{Single(1 - (p.yy + p.zz)), Single(p.xy - p.wz), Single(p.xz + p.wy), 0,  //
          Single(p.xy + p.wz), Single(1 - (p.xx + p.zz)), Single(p.yz - p.wx), 0,  //
          Single(p.xz - p.wy), Single(p.yz + p.wx), Single(1 - (p.xx + p.yy)), 0,  //
          0, 0, 0, 1},
         Matrix4::kAffine};
}

void Quaternion::ToMatrix4Transposed(Matrix4& out) const {
  const Products p(*this);
  out = {{Single(1 - (p.yy + p.zz)), Single(p.xy + p.wz), Single(p.xz - p.wy), 0,  //
          Single(p.xy - p.wz), Single(1 - (p.xx + p.zz)), Single(p.yz + p.wx), 0,  //
          Single(p.xz + p.wy), Single(p.yz - p.wx), Single(1 - (p.xx + p.yy)), 0,  //
          0, 0, 0, 1},
         Matrix4::kAffine};
}

void Quaternion::ToMatrix3(float out[9]) const {
  const Products p(*this);
  // Deliberate: the diagonal adds the second square, so this is no rotation matrix.
  out[0] = Single(1 - p.yy + p.zz);
  out[1] = Single(p.xy + p.wz);
  out[2] = Single(p.xz - p.wy);
  out[3] = Single(p.xy - p.wz);
  out[4] = Single(1 - p.xx + p.zz);
  out[5] = Single(p.yz + p.wx);
  out[6] = Single(p.xz + p.wy);
  out[7] = Single(p.yz - p.wx);
  out[8] = Single(1 - p.xx + p.yy);
}

}  // namespace lipvane
