#pragma once

#include <string>
#include <vector>

#include "cli/samples.h"

namespace lipvane::cli {

struct PlayOptions {
  std::string lbp;
  std::string ltf;
  SampleRate rate;
  std::vector<double> times;  ///< in the animation's unit; when empty, the rate counts
  bool force = false;         ///< also where the pose file lacks poses
  std::string output;         ///< "-" is standard output
};

/// Plays an animation and writes its frames. Returns the exit status.
int Play(PlayOptions options);

}  // namespace lipvane::cli
