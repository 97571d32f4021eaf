#pragma once

#include "lipvane/check/finding.h"
#include "lipvane/check/lbp_sections.h"
#include "lipvane/engine/bone_pose.h"
#include "lipvane/formats/phonemes.h"

namespace lipvane::check {

/// Names the speech targets and expressions whose poses are the neutral one, most often since they
/// were posed on other frames than those that were exported. The sections are those that the rig
/// was read from.
void CheckUnmovedPoses(const LbpSections& sections, const TBonePoseInfo& rig,
                       const PhonemeMapping& mapping, Recorder& recorder);

}  // namespace lipvane::check
