#include "cli/pose_needs.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "cli/messages.h"
#include "lipvane/check/finding.h"
#include "lipvane/check/lbp_check.h"
#include "lipvane/text/lists.h"
#include "lipvane/text/printable.h"

namespace lipvane::cli {
namespace {

bool Moves(const TAnimationTrack& track) {
  for (int i = 0; i < track.KeyCount(); ++i) {
    if (track.GetKey(i)->value != 0.0) return true;
  }
  return false;
}

/// Tracks up to the last one that moves something.
std::size_t MovingTracks(const TAnimation& animation) {
  std::size_t count = animation.tracks.size();
  while (count > 0 && !Moves(animation.tracks[count - 1]))
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

void WarnOfLostExpressions(const InputFile& lbp, const std::vector<std::string>& expressions,
                           const std::string& source, const TAnimation& animation) {
  std::vector<std::string> lost;
  for (const TAnimationTrack& track : animation.expressionTracks) {
    const bool isThere =
        std::find(expressions.begin(), expressions.end(), track.name) != expressions.end();
    if (!isThere && Moves(track)) lost.push_back(text::QuotedLine(track.name));
  }
  if (lost.empty()) return;
  const std::string more =
      lost.size() == 1 ? std::string() : " and " + std::to_string(lost.size() - 1) + " more";
  PrintWarning(source + ": nothing shows the expression " + lost.front() + more + ": " + lbp.name +
               (more.empty() ? " has no pose for it" : " has no poses for them"));
}

}  // namespace lipvane::cli
