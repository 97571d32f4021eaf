#include "lipvane/speech/speech_tracks.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

#include "lipvane/text/numbers.h"

namespace lipvane::speech {
namespace {

/// Whole microseconds: in binary 1.005 s is a little less than 1005 ms, and would be cut to 1004.
using Microseconds = std::int64_t;

/// How far a middle may be off, from the rounding of its two ends.
constexpr Microseconds kUnsure = 1;

Microseconds FromSeconds(double seconds) {
  return std::llround(seconds * 1e6);
}

/// Tables made by hand leave gaps that nobody hears.
constexpr Microseconds kShortestPause = 20'000;

// Whole milliseconds: the last one before a time, the first one after it, the nearest.

int Floor(Microseconds time) {
  return static_cast<int>((time >= 0 ? time : time - 999) / 1000);
}
int Ceiling(Microseconds time) {
  return Floor(time + 999);
}
int Rounded(Microseconds time) {
  return Floor(time + 500);
}

/// Where the tracks keep the weights of one phone, in whole milliseconds.
struct Plateau {
  int from = 0;
  int middle = 0;  ///< within from ... to; never given up
  int to = 0;
  Microseconds length = 0;           ///< of the phone
  const Weights* weights = nullptr;  ///< null at rest, before the first phone and after the last
  std::size_t phone = kNone;

  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
};

Plateau PlateauOf(Microseconds start, Microseconds end, Microseconds ramp) {
  const Microseconds middle = start + (end - start) / 2;
  Plateau plateau;
  plateau.middle = Rounded(middle);
  plateau.length = end - start;
  if (plateau.length > 2 * ramp) {
    // Rounded outwards, it is all held; but without a ramp that would be the neighbour's time.
    const bool isRampLong = ramp >= 1000;
    const int from = isRampLong ? Floor(start + ramp) : Ceiling(start + ramp);
    const int to = isRampLong ? Ceiling(end - ramp) : Floor(end - ramp);
    plateau.from = std::min(from, plateau.middle);
    plateau.to = std::max(to, plateau.middle);
  } else if (Rounded(middle - kUnsure) != Rounded(middle + kUnsure)) {
    // A middle half-way between two milliseconds has no nearest one: both have the weights.
    plateau.from = Floor(middle);
    plateau.to = plateau.from + 1;
  } else {
    plateau.from = plateau.to = plateau.middle;
  }
  return plateau;
}

/// Puts plateaus one after the other so that no two share a millisecond.
class Line {
 public:
  Line(Microseconds ramp, Microseconds lead, LeftOut& leftOut)
      : ramp_(ramp), lead_(lead), leftOut_(leftOut) {
    plateaus_.emplace_back();  // at rest at time 0
  }

  void Add(const Phone& phone, std::size_t number) {
    const Microseconds start = FromSeconds(phone.start);
    const Microseconds end = FromSeconds(phone.end);
    Plateau plateau = PlateauOf(start - lead_, end - lead_, ramp_);
    plateau.weights = phone.weights;
    plateau.phone = number;
    if (Rounded(start) == Rounded(end)) {
      LeaveOut(plateau);
      return;
    }
    // What the lead leaves of a long phone is still held.
    if (plateau.to > 0) plateau.middle = std::max(plateau.middle, 1);
    if (plateau.middle <= plateaus_.back().middle) {
      const bool isLonger = plateau.length > plateaus_.back().length;
      if (plateaus_.size() == 1 || !isLonger) {
        LeaveOut(plateau);
        return;
      }
      LeaveOut(plateaus_.back());
      plateaus_.pop_back();
    }
    Append(plateau);
  }

  /// At rest again.
  void End(double seconds) {
    Plateau rest;
    rest.middle = std::max(Ceiling(FromSeconds(seconds) - lead_), plateaus_.back().middle + 1);
    rest.from = rest.to = rest.middle;
    Append(rest);
  }

  const std::vector<Plateau>& Plateaus() const { return plateaus_; }

 private:
  void Append(Plateau plateau) {
    Plateau& before = plateaus_.back();
    before.to = std::min(before.to, plateau.middle - 1);
    plateau.from = std::max(plateau.from, before.to + 1);
    plateaus_.push_back(plateau);
  }

  /// Nobody misses silence.
  void LeaveOut(const Plateau& plateau) {
    const bool isSilent = plateau.phone == Plateau::kNone ||
                          std::all_of(plateau.weights->begin(), plateau.weights->end(),
                                      [](float weight) { return weight == 0.0F; });
    if (isSilent) return;
    const bool isBefore = plateau.middle <= 0 && lead_ > 0;
    (isBefore ? leftOut_.beforeStart : leftOut_.merged).push_back(plateau.phone);
  }

  Microseconds ramp_;
  Microseconds lead_;
  LeftOut& leftOut_;
  std::vector<Plateau> plateaus_;
};

/// Adds keys to a track, but none between two of the same value.
class KeyRun {
 public:
  explicit KeyRun(TAnimationTrack& track) : track_(track) {}

  void Add(int time, double value) {
    const int count = track_.KeyCount();
    if (count >= 2 && track_.GetKey(count - 1)->value == value &&
        track_.GetKey(count - 2)->value == value) {
      track_.DeleteKey(count - 1);
    }
    track_.AddKey({time, value});
  }

 private:
  TAnimationTrack& track_;
};

/// A phone's weight for a target times the strength, as the decimal of the float that the engine
/// makes of it: 0.85 of a table is 0.85 in an animation file, too.
double KeyValue(const Plateau& plateau, std::size_t target, double strength) {
  if (plateau.weights == nullptr) return 0.0;
  const double weight = text::DecimalOf((*plateau.weights)[target]) * strength;
  return text::DecimalOf(static_cast<float>(weight));
}

TAnimationTrack TrackOf(const std::vector<Plateau>& plateaus, std::size_t target, double strength) {
  TAnimationTrack track;
  KeyRun keys(track);
  for (const Plateau& plateau : plateaus) {
    const double value = KeyValue(plateau, target, strength);
    keys.Add(plateau.from, value);
    if (plateau.to > plateau.from) keys.Add(plateau.to, value);
  }
  return track;
}

}  // namespace

TAnimation SpeechTracks(const std::vector<Phone>& phones, double end, const Weights& silence,
                        const std::vector<std::string>& speechTargets, const TrackOptions& options,
                        LeftOut& leftOut) {
  Line line(FromSeconds(options.rampMs / 1e3), FromSeconds(options.leadMs / 1e3), leftOut);
  double before = 0.0;
  const auto addPauseUntil = [&](double start) {
    if (FromSeconds(start) - FromSeconds(before) < kShortestPause) return;
    line.Add({&silence, before, start}, Plateau::kNone);
  };
  for (std::size_t i = 0; i < phones.size(); ++i) {
    addPauseUntil(phones[i].start);
    line.Add(phones[i], i);
    before = phones[i].end;
  }
  addPauseUntil(end);
  line.End(end);

  TAnimation animation;
  for (std::size_t target = 0; target < speechTargets.size(); ++target) {
    TAnimationTrack track = TrackOf(line.Plateaus(), target, options.strength);
    track.name = speechTargets[target];
    animation.tracks.push_back(std::move(track));
  }
  animation.Digest();
  return animation;
}

}  // namespace lipvane::speech
