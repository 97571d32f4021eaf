#pragma once

#include <array>

#include "lipvane/host/host.h"

namespace lipvane::standalone {

using Vector = std::array<double, 3>;

/// The order of rotations; the numbers are those of a scene file. With row vectors kXyz turns about
/// x first.
enum class RotateOrder { kXyz = 0, kYzx = 1, kZxy = 2, kXzy = 3, kYxz = 4, kZyx = 5 };

/// All that makes a transform's or joint's local matrix. Radians and centimetres.
struct TransformValues {
  bool isJoint = false;
  Vector translate{0, 0, 0};
  Vector rotate{0, 0, 0};
  Vector scale{1, 1, 1};
  Vector shear{0, 0, 0};  ///< xy, xz, yz
  RotateOrder rotateOrder = RotateOrder::kXyz;
  Vector rotateAxis{0, 0, 0};
  // Joints only.
  Vector jointOrient{0, 0, 0};
  /// The parent's scale, divided out when compensating; an axis of scale 0 is left alone.
  Vector inverseScale{1, 1, 1};
  bool segmentScaleCompensate = true;
  // Pivots: transforms only.
  Vector rotatePivot{0, 0, 0};
  Vector rotatePivotTranslate{0, 0, 0};
  Vector scalePivot{0, 0, 0};
  Vector scalePivotTranslate{0, 0, 0};
};

/// Row vectors. A joint is S * RA * R * JO * IS * T; a transform is
/// SP^-1 * S * SH * SP * SPT * RP^-1 * RA * R * RP * RPT * T, with RA and JO about x first.
host::Matrix LocalMatrix(const TransformValues& values);

/// The unit quaternion of Euler angles, scalar first.
host::Rotation RotationFromEuler(const Vector& angles, RotateOrder order);

/// Splits a matrix as the host's transformation matrix does: scale and shear by orthogonalising the
/// rows, x first, a mirrored matrix having a negative z scale. A flattened axis has scale 0.
host::Transformation Decompose(const host::Matrix& matrix);

/// Euler angles (x, then y, then z) of the matrix once scale and shear are taken out. At the gimbal
/// lock z is 0; axes that were scaled to 0 get whatever directions complete a rotation.
Vector EulerAngles(const host::Matrix& matrix);

}  // namespace lipvane::standalone
