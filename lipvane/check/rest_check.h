#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "lipvane/check/finding.h"
#include "lipvane/engine/bone_pose.h"
#include "lipvane/host/standalone/scene.h"

namespace lipvane::check {

/// A bone of a pose file and the joint that bears its name.
struct JointOfBone {
  std::size_t bone = 0;  ///< its place in the poses
  standalone::NodeId joint = 0;
  std::size_t line = 1;  ///< that names it
};

/// Records where a scene's joints stand elsewhere than in the neutral pose. Its rest is frame 0,
/// where the neutral pose is exported from, or else what the scene was saved with: the one that is
/// nearer. Joints that something drives which is not evaluated are left out.
void CheckRest(const std::vector<JointOfBone>& joints, const TBonePoseInfo& rig,
               const standalone::Scene& scene, const std::string& sceneName, Recorder& recorder);

}  // namespace lipvane::check
