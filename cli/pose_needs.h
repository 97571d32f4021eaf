#pragma once

#include <string>
#include <vector>

#include "cli/input.h"
#include "lipvane/engine/animation.h"
#include "lipvane/engine/bone_pose.h"

/// Whether a bone pose file that can be read can also do what is asked of it. A bone that was
/// misspelt at the export, say, makes a file that reads as one without poses.
namespace lipvane::cli {

/// There are poses. False, after saying what is wrong with the file, when there are none; with
/// `force` that is a warning.
bool HasPoses(const InputFile& lbp, const TBonePoseInfo& rig, bool force);

/// The same for an animation: there is the neutral pose, and one for each track that moves
/// something. `source` is the file that the animation is from.
bool HasPosesFor(const InputFile& lbp, const TBonePoseInfo& rig, const std::string& source,
                 const TAnimation& animation, bool force);

/// Warns of tracks that move expressions which the pose file has no poses of, so that nothing shows
/// them; `expressions` are those that it has.
void WarnOfLostExpressions(const InputFile& lbp, const std::vector<std::string>& expressions,
                           const std::string& source, const TAnimation& animation);

}  // namespace lipvane::cli
