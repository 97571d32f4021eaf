#pragma once

#include <iosfwd>

#include "lipvane/engine/track.h"

namespace lipvane::cli {

/// From the least to the largest value of a track's keys, 0 among them.
struct ValueRange {
  double least = 0.0;
  double largest = 0.0;
};

/// Values that are not finite do not count.
ValueRange RangeOf(const TAnimationTrack& track);

/// Where a curve is drawn: times are the track's own, from 0 to `end`.
struct CurvePlace {
  double left = 0.0;  ///< of time 0
  double perTick = 1.0;
  double end = 0.0;
  double baseline = 0.0;
  double height = 1.0;  ///< of the value `scale`, upwards
  double scale = 1.0;
};

/// Writes the data of an SVG path: the area between the baseline and what the track plays, keys
/// that are out of order included. Keys whose value is not finite are left out.
void WriteCurve(std::ostream& out, const TAnimationTrack& track, const CurvePlace& place);

}  // namespace lipvane::cli
