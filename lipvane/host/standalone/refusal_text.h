#pragma once

#include <string>

#include "lipvane/host/standalone/scene.h"

namespace lipvane::standalone {

/// Why a channel takes no keys, to follow it in a sentence: "locked", "driven by aim (not a curve
/// over time)".
std::string RefusalText(const Scene& scene, NodeId node, Channel channel);

}  // namespace lipvane::standalone
