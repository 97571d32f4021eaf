#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "lipvane/check/finding.h"
#include "lipvane/formats/phonemes.h"
#include "lipvane/speech/timing.h"

namespace lipvane::check {

/// Adds what is to be said of the text of a timing file that is spoken with this phoneme table, in
/// order of line. Sounds are compared with the frames of a film of so many a second.
void CheckTiming(const std::string& fileName, std::string_view text,
                 const speech::TimingOptions& options, const PhonemeMapping& mapping,
                 double framesPerSecond, std::vector<Finding>& findings);

}  // namespace lipvane::check
