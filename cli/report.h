#pragma once

#include <string>
#include <vector>

#include "lipvane/check/finding.h"
#include "lipvane/engine/animation.h"
#include "lipvane/engine/bone_pose.h"
#include "lipvane/formats/phonemes.h"
#include "lipvane/host/standalone/interpreter.h"
#include "lipvane/host/standalone/scene.h"

/// What programs read of our results: JSON texts, as json.h has them.
namespace lipvane::cli {

/// A command line and what became of it.
struct CommandRecord {
  std::string line;
  standalone::CommandOutcome outcome;
};

/// A run: its commands, and the selection, time and curves that it left.
std::string RunReport(const std::vector<CommandRecord>& commands, const standalone::Scene& scene,
                      const standalone::StandaloneHost& host);

/// All that is read of a scene.
std::string SceneReport(const standalone::Scene& scene);

/// All that is read of a bone pose file, whose text this is.
std::string LbpReport(const std::string& text, TBonePoseInfo& poseInfo,
                      const PhonemeMapping& mapping);

/// All that is read of an animation file.
std::string LtfReport(const TAnimation& animation);

/// What was found in files, and how much of each severity.
std::string CheckReport(const std::vector<check::Finding>& findings);

}  // namespace lipvane::cli
