#pragma once

#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

#include "lipvane/check/scene_check.h"
#include "lipvane/engine/bone_pose.h"
#include "lipvane/host/standalone/scene.h"

/// What a user should know of a scene before, and after, an animation is baked onto it.
namespace lipvane::cli {

/// Warns of bones that the scene has not or has twice, and of joints that stand otherwise than keys
/// say. Channels that take no keys are WarnOfLostKeys's. False, after an error that names the
/// bones' file, when all of them are missing and one sentence says so.
bool WarnOfJoints(const check::CheckedScene& scene, const std::string& lbpName,
                  const std::vector<std::string>& boneNames, const TBonePoseInfo& rig);

/// Warns of joints with channels that take no keys, a line for each kind of cause with what to do
/// about it, and counts the joints that get no keys at all. Answers how many get some.
std::size_t WarnOfLostKeys(const standalone::Scene& scene,
                           const std::vector<standalone::NodeId>& joints);

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
void WarnOfOtherKeys(const standalone::Scene& scene, const std::vector<standalone::NodeId>& joints,
                     const BakedFrames& frames);

}  // namespace lipvane::cli
