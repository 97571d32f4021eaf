#pragma once

#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

#include "lipvane/engine/bone_pose.h"
#include "lipvane/host/standalone/scene.h"

/// What a user should know of a scene before, and after, an animation is baked onto it.
namespace lipvane::cli {

/// Warns of bones that the scene has not or has twice, and of joints that stand otherwise than keys
/// say. Channels that take no keys are left to the host, which tells of them when it is asked for
/// curves.
void WarnOfJoints(const standalone::Scene& scene, const std::string& sceneName,
                  const std::vector<std::string>& boneNames, const TBonePoseInfo& rig);

/// The frames that were baked.
struct BakedFrames {
  double start = 0.0;
  std::size_t count = 0;

  double At(std::size_t i) const { return start + static_cast<double>(i); }
  bool Hold(double time) const {
    const double i = std::round(time - start);
    return i >= 0.0 && i < static_cast<double>(count) && start + i == time;
  }
};

/// Warns of keys that the scene had at other times: they go on moving the joints, between the
/// frames or after them.
void WarnOfOtherKeys(const standalone::Scene& scene, const std::vector<std::string>& boneNames,
                     const BakedFrames& frames);

}  // namespace lipvane::cli
