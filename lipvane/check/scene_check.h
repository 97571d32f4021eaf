#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "lipvane/check/finding.h"
#include "lipvane/host/standalone/scene.h"

namespace lipvane::check {

/// Adds what keeps the poses of a bone pose file from being put onto a scene, each at the bone's
/// hierarchy line, in order of line. `sceneName` stands for the scene in messages. Nothing is said
/// of a file of another version.
void CheckAgainstScene(const std::string& lbpFileName, std::string_view lbpText,
                       const standalone::Scene& scene, const std::string& sceneName,
                       std::vector<Finding>& findings);

}  // namespace lipvane::check
