#pragma once

#include "lipvane/check/finding.h"
#include "lipvane/check/lbp_sections.h"

namespace lipvane::check {

/// The poses of a bone pose file: how many there are, and their bone lines. The counts of bones and
/// speech targets are those that the lines before have. True when what was found explains that a
/// reader refuses the file.
bool CheckPoses(const LbpSections& sections, long long bones, long long targets,
                Recorder& recorder);

}  // namespace lipvane::check
