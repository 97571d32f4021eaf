#pragma once

#include <string>

#include "lipvane/host/standalone/scene_data.h"
#include "lipvane/host/standalone/sound_node.h"

namespace lipvane::standalone {

/// Appends the statements that make a sound node to `added`, unless the file has one of that sound.
SoundNode AddSoundNode(SceneData& data, const Sound& sound, std::string& added);

}  // namespace lipvane::standalone
