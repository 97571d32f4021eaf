#include "lipvane/scene/pose_keying.h"

#include "lipvane/engine/math.h"

namespace lipvane::scene {

std::array<double, 3> JointRotation(host::Host& host, const Quaternion& poseRotation,
                                    const host::Rotation& orientation) {
  Quaternion rotation = poseRotation;
  rotation *= Quaternion(static_cast<float>(orientation.w), static_cast<float>(orientation.x),
                         static_cast<float>(orientation.y), static_cast<float>(orientation.z));
  Matrix4 rotationMatrix;
  rotation.ToMatrix4(rotationMatrix);
  host::Matrix matrix;
  for (std::size_t row = 0; row < 4; ++row) {
    for (std::size_t column = 0; column < 4; ++column) {
      matrix[row][column] = static_cast<double>(rotationMatrix.m[4 * row + column]);
    }
  }
  return host.EulerAngles(matrix);
}

host::Status KeyBone(host::Host& host, const BoneCurveSet& bone, const TIndexedBone& pose,
                     double frame) {
  const host::Status attached = host.AttachJoint(bone.node);
  if (!attached.ok()) return attached;
  host::Rotation orientation;
  host.GetOrientation(bone.node, orientation);
  const auto angles = JointRotation(host, pose.rotation, orientation);
  for (std::size_t axis = 0; axis < 3; ++axis) {
    bone.curves[kFirstRotate + axis]->AddKeyframe(frame, angles[axis]);
  }
  const std::array<float, 3> translation = {pose.translation.x, pose.translation.y,
                                            pose.translation.z};
  for (std::size_t axis = 0; axis < 3; ++axis) {
    bone.curves[kFirstTranslate + axis]->AddKeyframe(frame, static_cast<double>(translation[axis]));
  }
  return {};
}

}  // namespace lipvane::scene
