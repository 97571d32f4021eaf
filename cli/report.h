#pragma once

#include <stdexcept>
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

/// Of a report that would be of no use to anybody; says why.
class ReportError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A run: its commands, and the selection, time and curves that it left.
std::string RunReport(const std::vector<CommandRecord>& commands, const standalone::Scene& scene,
                      const standalone::StandaloneHost& host);

/// All that is read of a scene. Throws ReportError, as RunReport does, when the paths that it would
/// name are longer than kMaxPathBytes in all.
std::string SceneReport(const standalone::Scene& scene);

/// All that is read of a bone pose file, whose text this is.
std::string LbpReport(const std::string& text, TBonePoseInfo& poseInfo,
                      const PhonemeMapping& mapping);

/// All that is read of an animation file.
std::string LtfReport(const TAnimation& animation);

/// What was found in files, and how much of each severity.
std::string CheckReport(const std::vector<check::Finding>& findings);

}  // namespace lipvane::cli
