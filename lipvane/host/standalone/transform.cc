#include "lipvane/host/standalone/transform.h"

#include <cmath>
#include <cstddef>

namespace lipvane::standalone {
namespace {

using host::Matrix;
using host::Rotation;
/// The upper left of a matrix, row by row.
using Rows = std::array<Vector, 3>;

/// An axis shorter than this, relative to the row it was taken from, is rounding noise.
constexpr double kNoDirection = 1e-12;
/// Below this cosine of the middle angle the outer two turn about the same axis. The matrices that
/// matter were made in single precision, where sharper would be noise.
constexpr double kGimbalLock = 2e-6;

constexpr Matrix kIdentity{{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}};

std::array<std::size_t, 3> Axes(RotateOrder order) {
  switch (order) {
    case RotateOrder::kXyz:
      break;
    case RotateOrder::kYzx:
      return {1, 2, 0};
    case RotateOrder::kZxy:
      return {2, 0, 1};
    case RotateOrder::kXzy:
      return {0, 2, 1};
    case RotateOrder::kYxz:
      return {1, 0, 2};
    case RotateOrder::kZyx:
      return {2, 1, 0};
  }
  return {0, 1, 2};
}

// The steps of a local matrix: each multiplies by its own matrix on the right, so that they are
// called in the order in which the formula is written. Only row 3 knows translations.

void Translate(Matrix& matrix, const Vector& by) {
  for (std::size_t i = 0; i < 3; ++i)
    matrix[3][i] += by[i];
}

void TranslateBack(Matrix& matrix, const Vector& by) {
  for (std::size_t i = 0; i < 3; ++i)
    matrix[3][i] -= by[i];
}

void Scale(Matrix& matrix, const Vector& by) {
  for (auto& row : matrix) {
    for (std::size_t i = 0; i < 3; ++i)
      row[i] *= by[i];
  }
}

void Shear(Matrix& matrix, const Vector& by) {
  const auto [xy, xz, yz] = by;
  for (auto& row : matrix) {
    row[0] += row[1] * xy + row[2] * xz;
    row[1] += row[2] * yz;
  }
}

void Rotate(Matrix& matrix, const Vector& angles, RotateOrder order) {
  for (const std::size_t axis : Axes(order)) {
    const std::size_t u = (axis + 1) % 3;
    const std::size_t v = (axis + 2) % 3;
    const double cosine = std::cos(angles[axis]);
    const double sine = std::sin(angles[axis]);
    for (auto& row : matrix) {
      const double before = row[u];
      row[u] = before * cosine - row[v] * sine;
      row[v] = before * sine + row[v] * cosine;
    }
  }
}

/// What divides out a parent's scale. An axis that the parent has flattened cannot be had back and
/// stays as it is.
Vector Compensation(const Vector& parentScale) {
  Vector factors{};
  for (std::size_t i = 0; i < 3; ++i) {
    const double inverse = 1.0 / parentScale[i];
    factors[i] = std::isinf(inverse) ? 1.0 : inverse;
  }
  return factors;
}

Rotation Multiply(const Rotation& a, const Rotation& b) {
  return {
      a.w * b.w - a.x * b.x - a.y * b.y - a.z * b.z, a.w * b.x + a.x * b.w + a.y * b.z - a.z * b.y,
      a.w * b.y - a.x * b.z + a.y * b.w + a.z * b.x, a.w * b.z + a.x * b.y - a.y * b.x + a.z * b.w};
}

double Dot(const Vector& a, const Vector& b) {
  return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

Vector Cross(const Vector& a, const Vector& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

double Length(const Vector& v) {
  // In pairs: not every library's hypot of three keeps the squares from overflowing.
  return std::hypot(std::hypot(v[0], v[1]), v[2]);
}

Vector Times(const Vector& v, double factor) {
  return {v[0] * factor, v[1] * factor, v[2] * factor};
}

Vector Without(const Vector& v, const Vector& unit) {
  const double along = Dot(v, unit);
  return {v[0] - along * unit[0], v[1] - along * unit[1], v[2] - along * unit[2]};
}

Vector Unit(const Vector& v, double length) {
  return {v[0] / length, v[1] / length, v[2] / length};
}

struct Parts {
  Vector scale{};
  Rows rotation{};
};

/// Gives the axes that a flattened matrix does not tell a direction that makes a rotation.
void CompleteAxes(Rows& axes, const std::array<bool, 3>& known) {
  for (std::size_t i = 0; i < 3; ++i) {
    const std::size_t next = (i + 1) % 3;
    const std::size_t last = (i + 2) % 3;
    if (!known[i] && known[next] && known[last]) axes[i] = Cross(axes[next], axes[last]);
    if (!known[i] || known[next] || known[last]) continue;
    Vector side{};
    side[std::abs(axes[i][next]) < 0.9 ? next : i] = 1;
    side = Without(side, axes[i]);
    axes[next] = Unit(side, Length(side));
    axes[last] = Cross(axes[i], axes[next]);
  }
  if (!known[0] && !known[1] && !known[2]) axes = {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};
}

/// The rows made orthogonal one after the other, x first: what the later ones lose is the shear.
Parts Orthogonalise(const Matrix& matrix) {
  Parts parts;
  std::array<bool, 3> known{};
  for (std::size_t i = 0; i < 3; ++i) {
    Vector row{matrix[i][0], matrix[i][1], matrix[i][2]};
    const double before = Length(row);
    for (std::size_t earlier = 0; earlier < i; ++earlier) {
      if (known[earlier]) row = Without(row, parts.rotation[earlier]);
    }
    const double length = Length(row);
    known[i] = length > before * kNoDirection;
    if (!known[i]) continue;
    parts.scale[i] = length;
    parts.rotation[i] = Unit(row, length);
  }
  CompleteAxes(parts.rotation, known);
  if (Dot(Cross(parts.rotation[0], parts.rotation[1]), parts.rotation[2]) < 0) {
    parts.scale[2] = -parts.scale[2];
    parts.rotation[2] = Times(parts.rotation[2], -1);
  }
  return parts;
}

}  // namespace

Matrix LocalMatrix(const TransformValues& values) {
  Matrix matrix = kIdentity;
  if (values.isJoint) {
    Scale(matrix, values.scale);
    Rotate(matrix, values.rotateAxis, RotateOrder::kXyz);
    Rotate(matrix, values.rotate, values.rotateOrder);
    Rotate(matrix, values.jointOrient, RotateOrder::kXyz);
    if (values.segmentScaleCompensate) Scale(matrix, Compensation(values.inverseScale));
  } else {
    TranslateBack(matrix, values.scalePivot);
    Scale(matrix, values.scale);
    Shear(matrix, values.shear);
    Translate(matrix, values.scalePivot);
    Translate(matrix, values.scalePivotTranslate);
    TranslateBack(matrix, values.rotatePivot);
    Rotate(matrix, values.rotateAxis, RotateOrder::kXyz);
    Rotate(matrix, values.rotate, values.rotateOrder);
    Translate(matrix, values.rotatePivot);
    Translate(matrix, values.rotatePivotTranslate);
  }
  Translate(matrix, values.translate);
  return matrix;
}

Rotation RotationFromEuler(const Vector& angles, RotateOrder order) {
  Rotation rotation;
  for (const std::size_t axis : Axes(order)) {
    const double sine = std::sin(angles[axis] / 2);
    const Rotation turn{std::cos(angles[axis] / 2), axis == 0 ? sine : 0.0, axis == 1 ? sine : 0.0,
                        axis == 2 ? sine : 0.0};
    rotation = Multiply(turn, rotation);
  }
  return rotation;
}

host::Transformation Decompose(const Matrix& matrix) {
  return {matrix, {matrix[3][0], matrix[3][1], matrix[3][2]}, Orthogonalise(matrix).scale};
}

Vector EulerAngles(const Matrix& matrix) {
  const Rows rows = Orthogonalise(matrix).rotation;
  const double cosine = std::hypot(rows[0][0], rows[0][1]);
  const double y = std::atan2(-rows[0][2], cosine);
  // One of x and z is free at the lock: all of the turn goes into x.
  if (cosine < kGimbalLock) return {std::atan2(-rows[2][1], rows[1][1]), y, 0.0};
  return {std::atan2(rows[1][2], rows[2][2]), y, std::atan2(rows[0][1], rows[0][0])};
}

}  // namespace lipvane::standalone
