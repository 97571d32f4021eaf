#pragma once

#include <iosfwd>
#include <string>

#include "lipvane/engine/animation.h"
#include "lipvane/speech/timing.h"

namespace lipvane::cli {

/// What a chart shows.
struct TrackChart {
  std::string title;
  TAnimation animation;
  double ticksPerSecond = 1000.0;
  speech::Timing timing;  ///< of what is spoken; without labels there is no strip for it
};

/// Draws tracks over time, and below them what is spoken, as SVG. The text goes out piece by piece.
void WriteTrackChart(std::ostream& out, const TrackChart& chart);

}  // namespace lipvane::cli
