#pragma once

#include <string>

#include "lipvane/formats/phonemes.h"

namespace lipvane::plugin {

/// The name of pose `pose` of a new rig: Neutral, the fifteen speech targets, the four expressions;
/// empty beyond them.
std::string PoseName(int pose);

/// The name of pose `pose` of a rig with the speech targets of this mapping: Neutral, its speech
/// targets, the four expressions; empty beyond them.
std::string PoseName(int pose, const PhonemeMapping& mapping);

}  // namespace lipvane::plugin
