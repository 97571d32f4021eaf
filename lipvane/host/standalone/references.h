#pragma once

#include <string>

#include "lipvane/host/standalone/scene.h"

namespace lipvane::standalone {

/// Says that the scene refers to other files and that these are not read; empty when it does not.
std::string MissingReferences(const Scene& scene);

}  // namespace lipvane::standalone
