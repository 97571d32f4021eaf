#pragma once

/// The engine's small mathematics. Components are 32-bit floats. Quaternions are w, x, y, z
/// in this order. Matrices are kept row after row and work on row vectors, so what moves a point
/// stands in their last row. Angles are radians.
namespace lipvane {

/// A point, a translation or a direction. By default (0, 0, 0).
struct Vector3 {
  float x = 0.0F;
  float y = 0.0F;
  float z = 0.0F;

  constexpr Vector3() = default;
  constexpr Vector3(float px, float py, float pz) : x(px), y(py), z(pz) {}

  float Length() const;
  /// Scales to the length given. A zero vector stays as it is.
  void SetLength(float length);
  /// A copy of length 1; the zero vector comes back as it is.
  Vector3 Normalized() const;

  /// Exactly equal, component by component.
  friend constexpr bool operator==(const Vector3& a, const Vector3& b) {
    return a.x == b.x && a.y == b.y && a.z == b.z;
  }
  friend constexpr bool operator!=(const Vector3& a, const Vector3& b) { return !(a == b); }
};

struct Matrix4;

/// A rotation, or any four components w, x, y, z. By default the identity (1, 0, 0, 0).
struct Quaternion {
  float w = 1.0F;
  float x = 0.0F;
  float y = 0.0F;
  float z = 0.0F;

  constexpr Quaternion() = default;
  /// In storage order, stored unchanged.
  constexpr Quaternion(float pw, float px, float py, float pz) : w(pw), x(px), y(py), z(pz) {}

  /// The rotation by `angle` about an axis of any length, turning against the right-hand rule: the
  /// half angle is negated. The identity when the axis is no longer than the epsilon of float.
  static Quaternion FromAxisAngle(float angle, float ax, float ay, float az);
  /// The Hamilton product.
  static Quaternion Multiply(const Quaternion& a, const Quaternion& b);
  /// From q1 (t = 0) to q2 (t = 1) the shorter way; the result is not renormalised.
  static Quaternion Slerp(const Quaternion& q1, const Quaternion& q2, float t);
  /// Negates `a` when that brings it nearer to `b`.
  static void AlignHemisphere(Quaternion& a, const Quaternion& b);

  /// Multiplies by `b` from the right: *this becomes Multiply(*this, b).
  Quaternion& operator*=(const Quaternion& b);

  /// To length 1. One without a length, or with NaN for it, becomes the identity.
  void Normalize();
  /// Negates x, y and z in place.
  void Conjugate();
  /// The negated conjugate (-w, x, y, z), which turns as the conjugate does.
  Quaternion Inverse() const;
  /// The exponential of the rotation vector in x, y, z, in place; w is not read.
  void Exp();

  /// The rotation matrix of a unit quaternion; the rest of `out` becomes that of the identity.
  void ToMatrix4(Matrix4& out) const;
  /// ToMatrix4 with rows and columns of the rotation exchanged.
  void ToMatrix4Transposed(Matrix4& out) const;
  /// Nine elements in the layout of ToMatrix4Transposed, except that each diagonal element adds its
  /// second square.
  void ToMatrix3(float out[9]) const;

  /// Exactly equal, component by component: q and -q differ.
  friend constexpr bool operator==(const Quaternion& a, const Quaternion& b) {
    return a.w == b.w && a.x == b.x && a.y == b.y && a.z == b.z;
  }
  friend constexpr bool operator!=(const Quaternion& a, const Quaternion& b) { return !(a == b); }
};

/// A transform of row vectors. By default the identity, flagged affine only: whoever fills in
/// a rotation and a translation need not think of the flags.
struct Matrix4 {
  /// `flags`: this is the identity.
  static constexpr int kIdentity = 1;
  /// `flags`: the last column is (0, 0, 0, 1), so points need not be divided by a fourth component.
  static constexpr int kAffine = 2;

  /// Row by row; 12, 13, 14 are the translation, 3, 7, 11, 15 the projective column.
  float m[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
  /// Shortcuts that the operations take. Whoever sets one and writes to `m` keeps it true.
  int flags = kAffine;

  /// The product a * b: first a, then b.
  static Matrix4 Multiply(const Matrix4& a, const Matrix4& b);

  // These act after what the matrix does already. Angles are radians, right-handed.
  void Translate(const Vector3& v);
  void Scale(const Vector3& s);
  void RotateX(float a);
  void RotateY(float a);
  void RotateZ(float a);

  /// The inverse of an affine matrix; `out` may be this matrix. False, with `out` untouched, when
  /// the determinant of the 3x3 part is below 1e-12.
  bool Inverse(Matrix4& out) const;

  /// p * M; of a matrix that is not flagged affine, divided by the fourth component.
  Vector3 TransformPoint(const Vector3& p) const;
  /// The same without the translation.
  Vector3 TransformVector(const Vector3& p) const;
};

}  // namespace lipvane
