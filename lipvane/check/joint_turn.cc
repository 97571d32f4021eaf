#include "lipvane/check/joint_turn.h"

#include <algorithm>
#include <cmath>

#include "lipvane/formats/lbp.h"
#include "lipvane/scene/pose_keying.h"

namespace lipvane::check {
namespace {

using standalone::TransformValues;

constexpr double kDegrees = 57.29577951308232;

double Length(const std::array<double, 4>& q) {
  return std::sqrt(q[0] * q[0] + q[1] * q[1] + q[2] * q[2] + q[3] * q[3]);
}

}  // namespace

std::array<double, 4> LocalTurn(const TransformValues& values) {
  const host::Matrix local = standalone::LocalMatrix(values);
  std::array<double, 16> matrix{};
  for (std::size_t i = 0; i < matrix.size(); ++i)
    matrix[i] = local[i / 4][i % 4];
  std::array<double, 4> turn = QuaternionFromMatrix(matrix);
  turn[0] = -turn[0];
  return turn;
}

double AngleBetween(const std::array<double, 4>& a, const std::array<double, 4>& b) {
  std::array<double, 4> difference{};
  std::array<double, 4> sum{};
  for (std::size_t i = 0; i < 4; ++i) {
    const double left = a[i] / Length(a);
    const double right = b[i] / Length(b);
    difference[i] = left - right;
    sum[i] = left + right;
  }
  // The two signs of a quaternion are one rotation. Unlike a cosine this tells small angles.
  const double half = std::atan2(Length(difference), Length(sum));
  return 4.0 * std::min(half, std::atan2(Length(sum), Length(difference))) * kDegrees;
}

WorstTurn FindWorstTurn(const TBonePoseInfo& rig, std::size_t bone, const TransformValues& joint) {
  TransformValues meant;
  meant.isJoint = true;
  meant.jointOrient = joint.jointOrient;
  TransformValues keyed = meant;
  keyed.rotateOrder = joint.rotateOrder;
  keyed.rotateAxis = joint.rotateAxis;
  const host::Rotation orientation =
      standalone::RotationFromEuler(joint.jointOrient, standalone::RotateOrder::kXyz);
  WorstTurn worst;
  for (std::size_t pose = 0; pose < rig.poses.size(); ++pose) {
    if (rig.poses[pose].Bones().size() <= bone) continue;
    meant.rotate = standalone::EulerAngles(
        scene::JointMatrix(rig.poses[pose].Bones()[bone].rotation, orientation));
    keyed.rotate = meant.rotate;
    const double degrees = AngleBetween(LocalTurn(meant), LocalTurn(keyed));
    if (degrees > worst.degrees) worst = {degrees, pose};
  }
  return worst;
}

}  // namespace lipvane::check
