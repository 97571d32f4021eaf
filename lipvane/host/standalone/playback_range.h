#pragma once

#include <limits>
#include <optional>

namespace lipvane::standalone {

/// Frames from the first to the last; empty to begin with.
struct FrameRange {
  double first = std::numeric_limits<double>::infinity();
  double last = -std::numeric_limits<double>::infinity();
};

/// What became of the playback range of a scene.
struct RangeChange {
  std::optional<double> oldFirst;  ///< as the file had it, if it said
  std::optional<double> oldLast;
  std::optional<double> newFirst;  ///< nothing when it stays
  std::optional<double> newLast;
  /// The file sets the range with more than plain numbers, and it was left alone.
  bool isUnread = false;
};

}  // namespace lipvane::standalone
