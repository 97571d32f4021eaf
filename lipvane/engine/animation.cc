#include "lipvane/engine/animation.h"

#include <algorithm>
#include <cstddef>

#include "lipvane/engine/arrays.h"
#include "lipvane/engine/trail.h"

namespace lipvane {
namespace {

/// The time of the last key by position, whatever the order of the keys; -1 without keys.
int EndTime(const TAnimationTrack& track) {
  const TAnimationKey* last = track.GetKey(track.KeyCount() - 1);
  return last == nullptr ? -1 : last->time;
}

}  // namespace

TAnimation::~TAnimation() noexcept(!kDestructorsRaise) {
  Trail("TAnimation::~TAnimation", [&] {
    DestroyElements(tracks);
    DestroyElements(expressionTracks);
  });
}

void TAnimation::AddTrack(const TAnimationTrack& track) {
  Trail("TAnimation::AddTrack", [&] { tracks.push_back(track); });
}

void TAnimation::AddExpressionTrack(const TAnimationTrack& track) {
  Trail("TAnimation::AddExpressionTrack", [&] { expressionTracks.push_back(track); });
}

TAnimationTrack* TAnimation::GetTrack(int i) {
  return Trail("TAnimation::GetTrack", [&] { return ElementOrNull(tracks, i); });
}

TAnimationTrack* TAnimation::GetExpressionTrack(const std::string& trackName) {
  return Trail("TAnimation::GetExpressionTrack",
               [&] { return FindNamed(expressionTracks, trackName); });
}

void TAnimation::Digest() {
  Trail("TAnimation::Digest", [&] {
    // Deliberate: the length starts from what it was, so it never becomes shorter.
    for (const TAnimationTrack& track : tracks) {
      length = std::max(length, EndTime(track));
    }
    for (const TAnimationTrack& track : expressionTracks) {
      length = std::max(length, EndTime(track));
    }
  });
}

bool TAnimation::ValuesAtTime(double t, std::vector<double>& weights) {
  return Trail("TAnimation::ValuesAtTime", [&] {
    if (length < t || t < 0.0) {
      return true;
    }
    // Element 0 is the neutral pose's and the caller's alone.
    for (std::size_t i = 0; i < tracks.size(); ++i) {
      if (weights.size() < i + 2) {
        weights.resize(i + 2);
      }
      weights[i + 1] = tracks[i].ValueAtTime(t);
    }
    return false;
  });
}

double TAnimation::ExpressionValueAtTime(double t, const std::string& trackName) {
  return Trail("TAnimation::ExpressionValueAtTime", [&] {
    const TAnimationTrack* track = GetExpressionTrack(trackName);
    return track == nullptr ? 0.0 : track->ValueAtTime(t);
  });
}

}  // namespace lipvane
