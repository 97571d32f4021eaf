#pragma once

#include <string>

#include "lipvane/speech/speech_tracks.h"
#include "lipvane/speech/timing.h"

namespace lipvane::cli {

struct SpeakOptions {
  std::string timing;
  std::string lbp;
  speech::TimingOptions timingOptions;
  speech::TrackOptions trackOptions;
  std::string shapes;   ///< a file of mouth shapes; empty for the built-in ones
  std::string unknown;  ///< the phoneme that stands for unknown labels; empty when they are errors
  bool force = false;   ///< also where the pose file lacks poses
  std::string output;   ///< "-" is standard output
};

/// Makes an animation file of the timing of a spoken line. Returns the exit status.
int Speak(const SpeakOptions& options);

}  // namespace lipvane::cli
