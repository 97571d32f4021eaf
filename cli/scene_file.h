#pragma once

#include <optional>
#include <string>

#include "cli/input.h"
#include "cli/progress.h"
#include "lipvane/host/standalone/scene.h"

namespace lipvane::cli {

/// Opens a scene, with its notes as warnings; nothing, after saying why, when it is refused.
std::optional<standalone::Scene> OpenScene(InputFile file, Progress& progress);
/// Reads it first; `option` names it, if any. Also gives what it said.
std::optional<standalone::Scene> OpenScene(const std::string& fileName, const std::string& option,
                                           Progress& progress, std::string& problem);

/// False, after saying which ones there are, when the scene has no such namespace.
bool HasNamespace(const standalone::Scene& scene, const std::string& sceneName,
                  const std::string& nameSpace);

/// Writes a scene whole or not at all. False, after saying so, when it could not be written.
bool SaveScene(const standalone::Scene& scene, const std::string& fileName);

}  // namespace lipvane::cli
