#pragma once

#include <array>

#include "lipvane/engine/bone_pose.h"
#include "lipvane/host/host.h"
#include "lipvane/scene/bone_curves.h"

namespace lipvane::scene {

/// What a joint of this orientation has to turn by, apart from its orientation, to stand as the
/// pose rotation says. Row vectors.
host::Matrix JointMatrix(const Quaternion& poseRotation, const host::Rotation& orientation);

/// The Euler angles (radians, about x, then y, then z) that a joint of this orientation needs to
/// stand as the pose rotation says. A joint whose rotate order is another, or whose rotate axis
/// is set, stands otherwise: neither is looked at.
std::array<double, 3> JointRotation(host::Host& host, const Quaternion& poseRotation,
                                    const host::Rotation& orientation);

/// What a joint's channels have to be: radians about x, then y, then z; centimetres.
struct JointChannels {
  std::array<double, 3> rotation{};
  std::array<double, 3> translation{};
};

/// Makes a joint's channels from a bone of a pose, with the joint's orientation at the current
/// time. Fails when the node is not a joint.
host::Status MakeJointChannels(host::Host& host, const host::Node& joint, const TIndexedBone& pose,
                               JointChannels& channels);

/// Keys the channels on a bone's curves: rotation, then translation; scale gets no key.
void KeyChannels(const BoneCurveSet& bone, const JointChannels& channels, double frame);

/// Makes and keys the channels of one bone. Fails, with nothing keyed, when the bone is not bound
/// to a joint.
host::Status KeyBone(host::Host& host, const BoneCurveSet& bone, const TIndexedBone& pose,
                     double frame);

}  // namespace lipvane::scene
