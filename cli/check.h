#pragma once

#include <string>
#include <vector>

namespace lipvane::cli {

/// Says what is odd about pose and animation files, one finding a line or as JSON. With a scene
/// (an empty name is none) pose files are held against it. Returns the exit status.
int Check(const std::vector<std::string>& files, const std::string& scene, bool asJson);

}  // namespace lipvane::cli
