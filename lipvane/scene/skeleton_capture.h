#pragma once

#include <string>
#include <vector>

#include "lipvane/formats/lbp.h"
#include "lipvane/host/host.h"

namespace lipvane::scene {

/// Appends each bone found and the name of its first parent, in the order of the names; a name
/// that several nodes bear gives several, a name that none bears gives none. Fails when the
/// scene cannot be walked.
host::Status CaptureHierarchy(host::Host& host, const std::vector<std::string>& boneNames,
                              std::vector<LbpHierarchyLine>& hierarchy);

/// Appends the local transform at the current time of each bone found, in the same order. A bone
/// without a transform (the world) is printed with the label "MFnDagNode constructor" and left out.
/// Fails when the scene cannot be walked.
host::Status CapturePose(host::Host& host, const std::vector<std::string>& boneNames,
                         std::vector<LbpBone>& bones);

}  // namespace lipvane::scene
