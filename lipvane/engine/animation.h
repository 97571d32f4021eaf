#pragma once

#include <string>
#include <vector>

#include "lipvane/engine/track.h"
#include "lipvane/engine/trail.h"

namespace lipvane {

/// One piece of facial animation: a track for every speech target and one for every expression that
/// moves. Copies are deep.
struct TAnimation {
  std::string name;
  /// The last moment, in the keys' unit of time; see Digest.
  int length = 0;
  /// In the order of the speech targets: the first moves pose 1, since pose 0 is neutral.
  std::vector<TAnimationTrack> tracks;
  /// Found by their names.
  std::vector<TAnimationTrack> expressionTracks;

  TAnimation() = default;
  TAnimation(const TAnimation&) = default;
  TAnimation(TAnimation&&) noexcept = default;
  TAnimation& operator=(const TAnimation&) = default;
  TAnimation& operator=(TAnimation&&) noexcept = default;
  ~TAnimation() noexcept(!kDestructorsRaise);

  /// Appends a copy.
  void AddTrack(const TAnimationTrack& track);
  /// Appends a copy.
  void AddExpressionTrack(const TAnimationTrack& track);
  /// Track `i`, or null. Valid until a track is added.
  TAnimationTrack* GetTrack(int i);
  /// The first expression track of exactly this name, or null. Valid until one is added.
  TAnimationTrack* GetExpressionTrack(const std::string& trackName);

  /// Raises `length` to the time of the latest last key. To be called when tracks are complete.
  void Digest();

  /// Samples the speech targets' tracks into weights[1], weights[2] ..., growing the array with
  /// zeros. True, with nothing written, when t lies outside 0 ... length.
  bool ValuesAtTime(double t, std::vector<double>& weights);
  /// The value of an expression's track, inside and outside of the animation; 0 when there is none.
  double ExpressionValueAtTime(double t, const std::string& trackName);
};

}  // namespace lipvane
