#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "lipvane/check/finding.h"
#include "lipvane/engine/bone_pose.h"
#include "lipvane/host/standalone/scene.h"

namespace lipvane::check {

/// A bone of a pose file, and the line that names it.
struct NamedBone {
  std::string_view name;
  std::size_t line = 1;
};

/// A scene to hold bones against.
struct CheckedScene {
  const standalone::Scene& scene;
  std::string name;       ///< what messages call it
  std::string nameSpace;  ///< that the bones are in; empty for the root
};

/// Records what keeps the poses of these bones from being put onto a scene. The rig's poses have
/// the bones in this order; without poses nothing is said of how they would turn the joints.
/// Messages have all names in full. A name that comes twice is looked at once. False when none is
/// in the scene and one finding says so for all.
bool CheckBonesAgainstScene(const std::vector<NamedBone>& bones, const TBonePoseInfo& rig,
                            const CheckedScene& scene, Recorder& recorder);

/// Adds what keeps the poses of a bone pose file from being put onto a scene, and where the scene
/// stands elsewhere than in the neutral pose, each at the bone's hierarchy line, in order of line.
/// Nothing is said of a file of another version.
void CheckAgainstScene(const std::string& lbpFileName, std::string_view lbpText,
                       const CheckedScene& scene, std::vector<Finding>& findings);

}  // namespace lipvane::check
