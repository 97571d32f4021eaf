#pragma once

#include <array>

#include "lipvane/engine/bone_pose.h"
#include "lipvane/host/host.h"
#include "lipvane/scene/bone_curves.h"

namespace lipvane::scene {

/// The Euler angles (radians, about x, then y, then z) that a joint of this orientation needs to
/// stand as the pose rotation says. A joint whose rotate order is another, or whose rotate axis
/// is set, stands otherwise: neither is looked at.
std::array<double, 3> JointRotation(host::Host& host, const Quaternion& poseRotation,
                                    const host::Rotation& orientation);

/// Keys one bone of a pose on its joint: rotation, then translation; scale gets no key. Fails, with
/// nothing keyed, when the bone is not bound to a joint.
host::Status KeyBone(host::Host& host, const BoneCurveSet& bone, const TIndexedBone& pose,
                     double frame);

}  // namespace lipvane::scene
