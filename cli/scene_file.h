#pragma once

#include <optional>
#include <string>

#include "cli/progress.h"
#include "lipvane/host/standalone/scene.h"

namespace lipvane::cli {

/// Opens a scene, with its notes as warnings; nothing, after saying why, when it cannot be read.
std::optional<standalone::Scene> OpenScene(const std::string& fileName, Progress& progress);
/// The same; also gives what it said.
std::optional<standalone::Scene> OpenScene(const std::string& fileName, Progress& progress,
                                           std::string& problem);

/// Writes a scene whole or not at all. False, after saying so, when it could not be written.
bool SaveScene(const standalone::Scene& scene, const std::string& fileName);

}  // namespace lipvane::cli
