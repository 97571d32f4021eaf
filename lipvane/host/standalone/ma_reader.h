#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "lipvane/host/standalone/scene_data.h"

namespace lipvane::standalone {

/// Reads a scene from the text of its file; `name` stands for the file in messages. Throws
/// SceneError.
SceneData ReadScene(std::string text, const std::string& name,
                    const std::function<void(std::size_t, std::size_t)>& progress);

}  // namespace lipvane::standalone
