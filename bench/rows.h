#pragma once

#include <vector>

#include "bench/paired.h"

/// What is measured, and what it has to reach.
namespace lipvane::bench {

/// Blends, whole frames and tracks.
std::vector<Row> EngineRows();
/// Bone pose files.
std::vector<Row> FormatsRows();
/// Scenes.
std::vector<Row> SceneRows();
/// The command line as a process.
std::vector<Row> ProgramRows();

}  // namespace lipvane::bench
