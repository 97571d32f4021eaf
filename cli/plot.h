#pragma once

#include <string>

#include "lipvane/speech/timing.h"

namespace lipvane::cli {

struct PlotOptions {
  std::string ltf;
  std::string timing;  ///< file of what is spoken; empty for none
  speech::TimingOptions timingOptions;
  double ticksPerSecond = 1000.0;
  std::string output;  ///< "-" is standard output
};

/// Draws an animation file as a picture (SVG). Returns the exit status.
int Plot(const PlotOptions& options);

}  // namespace lipvane::cli
