#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "lipvane/engine/animation.h"
#include "lipvane/speech/phones.h"

namespace lipvane::speech {

/// More than anybody has a use for, in milliseconds.
inline constexpr int kLongestShift = 60'000;

struct TrackOptions {
  /// How far from its ends a long phone begins to hold: 0 to kLongestShift.
  double rampMs = 80.0;
  /// How much earlier than the sound the mouth moves: 0 to kLongestShift.
  double leadMs = 0.0;
  double strength = 1.0;  ///< what all weights are multiplied by
};

/// What phones could not have keys of their own, by their places in the list.
struct LeftOut {
  /// Too short: no millisecond was theirs alone, so a neighbour takes their time.
  std::vector<std::size_t> merged;
  /// The lead moves them before the beginning.
  std::vector<std::size_t> beforeStart;
};

/// A track for each speech target, over milliseconds, that leads from phone to phone.
///
/// In the middle of a phone every target has just the phone's weight times the strength, as the
/// shortest decimal of that float (0.85, not 0.8500000238). A phone longer than two ramps holds it
/// from start + ramp to end - ramp. Between, the tracks' own ease leads from one phone to the next,
/// so the mouth is half-way where two long phones meet, and neighbours of equal weight do not dip.
/// Gaps of 20 ms and more are silence. Each track has a key of 0 at time 0 and at the end, and
/// times that strictly ascend; keys that change nothing are left out.
///
/// The phones are in order, do not overlap, and all have weights, one a speech target; `end` is the
/// recording's, in seconds.
TAnimation SpeechTracks(const std::vector<Phone>& phones, double end, const Weights& silence,
                        const std::vector<std::string>& speechTargets, const TrackOptions& options,
                        LeftOut& leftOut);

}  // namespace lipvane::speech
