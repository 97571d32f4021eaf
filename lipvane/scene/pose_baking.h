#pragma once

#include <optional>
#include <string>

#include "lipvane/engine/bone_pose.h"
#include "lipvane/host/host.h"
#include "lipvane/scene/bone_curves.h"
#include "lipvane/scene/dag_search.h"
#include "lipvane/scene/pose_keying.h"

namespace lipvane::scene {

/// Keys one bone's pose at frame after frame on the joint of its name; of several nodes of the name
/// it is the last one of the walk, as for an import. The joint turns from each frame to the next by
/// the nearest of the Euler triples that mean the rotation, so that nothing flips in between.
class BoneBaker {
 public:
  /// Makes curves on the joint's translation and rotation, when the name's node is a joint. The
  /// search must have looked for it.
  BoneBaker(host::Host& host, const DagSearch& search, const std::string& boneName);

  bool HasJoint() const { return hasJoint_; }
  /// The joint; the null object when there is none.
  const host::Node& Joint() const { return bone_.node; }

  /// Frames come in ascending order, the host's current time being the frame. Fails, with nothing
  /// keyed, when there is no joint or the pose is not finite.
  host::Status Key(const TIndexedBone& pose, double frame);

 private:
  host::Host& host_;
  BoneCurveSet bone_;
  bool hasJoint_ = false;
  std::optional<std::array<double, 3>> previousRotation_;
};

}  // namespace lipvane::scene
