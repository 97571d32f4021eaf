#pragma once

#include <vector>

#include "lipvane/host/standalone/key_edits.h"
#include "lipvane/host/standalone/playback_range.h"
#include "lipvane/host/standalone/scene_data.h"

namespace lipvane::standalone {

/// The edits that widen the range which the file sets to hold the frames; whole frames at both
/// ends. The animation range is widened where it would end within the playback range.
RangeChange ExtendPlaybackRange(const SceneData& data, const FrameRange& frames,
                                std::vector<Edit>& edits);

}  // namespace lipvane::standalone
