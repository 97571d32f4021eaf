#include "cli/pose_needs.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "cli/messages.h"
#include "lipvane/check/finding.h"
#include "lipvane/check/lbp_check.h"
#include "lipvane/text/lists.h"

namespace lipvane::cli {
namespace {

/// Tracks up to the last one that moves something.
std::size_t MovingTracks(const TAnimation& animation) {
  std::size_t count = animation.tracks.size();
  const auto moves = [](const TAnimationTrack& track) {
    for (int i = 0; i < track.KeyCount(); ++i) {
      if (track.GetKey(i)->value != 0.0) return true;
    }
    return false;
  };
  while (count > 0 && !moves(animation.tracks[count - 1]))
    --count;
  return count;
}

/// The first error in the file, as check says it, before what follows from it.
std::string WithReason(const InputFile& lbp, const std::string& consequence) {
  std::vector<check::Finding> findings;
  check::CheckLbp(lbp.name, lbp.text, findings);
  const auto error = std::find_if(findings.begin(), findings.end(), [](const auto& finding) {
    return finding.rule.severity == check::Severity::kError;
  });
  if (error == findings.end()) return lbp.name + ": " + consequence;
  return lbp.name + ":" + std::to_string(error->line) + ": " + error->text + "; " + consequence;
}

bool Decide(const std::string& text, bool force) {
  if (force) {
    PrintWarning(text);
  } else {
    PrintError(text + " (--force goes on all the same)");
  }
  return force;
}

}  // namespace

bool HasPoses(const InputFile& lbp, const TBonePoseInfo& rig, bool force) {
  return !rig.poses.empty() || Decide(WithReason(lbp, "it reads as a file without poses"), force);
}

bool HasPosesFor(const InputFile& lbp, const TBonePoseInfo& rig, const std::string& source,
                 const TAnimation& animation, bool force) {
  if (rig.poses.empty()) return HasPoses(lbp, rig, force);
  const std::size_t tracks = MovingTracks(animation);
  if (tracks < rig.poses.size()) return true;
  return Decide(
      WithReason(lbp, text::Counted(static_cast<long long>(rig.poses.size()), "pose", "poses") +
                          " cannot show the " +
                          text::Counted(static_cast<long long>(tracks), "track", "tracks") +
                          " of " + source + ", each of which needs one besides the neutral pose"),
      force);
}

}  // namespace lipvane::cli
