#include "lipvane/scene/pose_keying.h"

#include "lipvane/engine/math.h"

namespace lipvane::scene {

host::Matrix JointMatrix(const Quaternion& poseRotation, const host::Rotation& orientation) {
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
  return matrix;
}

std::array<double, 3> JointRotation(host::Host& host, const Quaternion& poseRotation,
                                    const host::Rotation& orientation) {
  return host.EulerAngles(JointMatrix(poseRotation, orientation));
}

host::Status MakeJointChannels(host::Host& host, const host::Node& joint, const TIndexedBone& pose,
                               JointChannels& channels) {
  host::Status status;
  const auto attached = host.AttachJoint(joint, status);
  if (!status.ok()) return status;
  host::Rotation orientation;
  attached->GetOrientation(orientation);
  channels.rotation = JointRotation(host, pose.rotation, orientation);
  channels.translation = {static_cast<double>(pose.translation.x),
                          static_cast<double>(pose.translation.y),
                          static_cast<double>(pose.translation.z)};
  return {};
}

void KeyChannels(const BoneCurveSet& bone, const JointChannels& channels, double frame) {
  for (std::size_t axis = 0; axis < 3; ++axis) {
    bone.curves[kFirstRotate + axis]->AddKeyframe(frame, channels.rotation[axis]);
  }
  for (std::size_t axis = 0; axis < 3; ++axis) {
    bone.curves[kFirstTranslate + axis]->AddKeyframe(frame, channels.translation[axis]);
  }
}

host::Status KeyBone(host::Host& host, const BoneCurveSet& bone, const TIndexedBone& pose,
                     double frame) {
  JointChannels channels;
  const host::Status made = MakeJointChannels(host, bone.node, pose, channels);
  if (made.ok()) KeyChannels(bone, channels, frame);
  return made;
}

}  // namespace lipvane::scene
