#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "lipvane/engine/position_hint.h"
#include "lipvane/engine/trail.h"

namespace lipvane {

/// A value at a time, on whatever scale the animation uses (files: usually milliseconds).
struct TAnimationKey {
  int time = 0;
  double value = 0.0;
};

/// How strongly one speech target, or one expression, shows over time. The curve leaves each key
/// and reaches the next one level; before the first and after the last it stays at their values.
class TAnimationTrack {
 public:
  /// The speech target or the expression that the track drives.
  std::string name;

  TAnimationTrack() = default;
  TAnimationTrack(const TAnimationTrack&) = default;
  TAnimationTrack(TAnimationTrack&&) noexcept = default;
  TAnimationTrack& operator=(const TAnimationTrack&) = default;
  TAnimationTrack& operator=(TAnimationTrack&&) noexcept = default;
  ~TAnimationTrack() noexcept(!kDestructorsRaise);

  /// Appends a key. Sampling expects keys in ascending order of time; nothing here sorts them.
  void AddKey(const TAnimationKey& key);
  /// Key `i`, or null. Valid until a key is added or deleted.
  const TAnimationKey* GetKey(int i) const;
  /// Removes key `i`, which must exist: std::out_of_range otherwise.
  void DeleteKey(int i);
  int KeyCount() const { return static_cast<int>(keys_.size()); }

  /// The value at a time; 0 without keys. Not a number at the time of the last two keys when they
  /// share it.
  double ValueAtTime(double t) const;

 private:
  /// The start of the first interval that holds `t`, or of the last one: at the end of the track,
  /// and where disorder among the keys leaves a gap.
  std::size_t IntervalAt(double t) const;

  std::vector<TAnimationKey> keys_;
  bool isAscending_ = true;  // equal times included
  PositionHint lastInterval_;
};

}  // namespace lipvane
