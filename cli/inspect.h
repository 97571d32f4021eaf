#pragma once

#include <string>

namespace lipvane::cli {

/// Says what is read of a pose, animation or scene file, for people or as JSON. Returns the exit
/// status.
int Inspect(const std::string& fileName, bool asJson);

}  // namespace lipvane::cli
