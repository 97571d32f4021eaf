#include "lipvane/engine/track.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "lipvane/engine/trail.h"

namespace lipvane {
namespace {

constexpr double kTiny = 4.440892098500626e-16;  // twice the epsilon of double

/// What holds for any keys, one interval after the other.
std::size_t FirstIntervalAt(const std::vector<TAnimationKey>& keys, double t) {
  std::size_t i = 0;
  while (i < keys.size() - 2 && !(keys[i].time <= t && t < keys[i + 1].time)) {
    ++i;
  }
  return i;
}

/// The same for keys in ascending order, of which the first is not after `t`: the last interval
/// that does not start after it. Both ways of a step cost the same, so that no guess of the
/// processor's can be wrong.
std::size_t LastIntervalFrom(const std::vector<TAnimationKey>& keys, double t) {
  std::size_t first = 0;
  for (std::size_t count = keys.size() - 1; count > 1;) {
    const std::size_t half = count / 2;
    first += keys[first + half].time <= t ? half : 0;
    count -= half;
  }
  return first;
}

bool IsEarlier(const TAnimationKey& a, const TAnimationKey& b) {
  return a.time < b.time;
}

double EasedAt(const TAnimationKey& from, const TAnimationKey& to, double t) {
  const double start = from.time;
  const double u = (t - start) / (to.time - start);
  const double a = from.value;
  const double b = to.value;
  return (2 * a - 2 * b) * u * u * u + (3 * b - 3 * a) * u * u + a;
}

}  // namespace

TAnimationTrack::~TAnimationTrack() noexcept(!kDestructorsRaise) {
  Trail("TAnimationTrack::~TAnimationTrack", [] {});
}

void TAnimationTrack::AddKey(const TAnimationKey& key) {
  Trail("TAnimationTrack::AddKey", [&] {
    isAscending_ = isAscending_ && (keys_.empty() || keys_.back().time <= key.time);
    keys_.push_back(key);
  });
}

const TAnimationKey* TAnimationTrack::GetKey(int i) const {
  return Trail("TAnimationTrack::GetKey", [&]() -> const TAnimationKey* {
    const auto index = static_cast<std::size_t>(i);
    return i >= 0 && index < keys_.size() ? &keys_[index] : nullptr;
  });
}

void TAnimationTrack::DeleteKey(int i) {
  Trail("TAnimationTrack::DeleteKey", [&] {
    static_cast<void>(keys_.at(static_cast<std::size_t>(i)));  // erase checks nothing
    keys_.erase(keys_.begin() + i);
    isAscending_ = isAscending_ || std::is_sorted(keys_.begin(), keys_.end(), IsEarlier);
  });
}

std::size_t TAnimationTrack::IntervalAt(double t) const {
  if (!isAscending_) return FirstIntervalAt(keys_, t);
  // A film goes on from where it was: the interval of the last time, or the next one.
  const std::size_t before = lastInterval_.Get();
  const std::size_t end = std::min(keys_.size() - 1, before + 2);
  for (std::size_t i = before; i < end; ++i) {
    if (!(keys_[i].time <= t && t < keys_[i + 1].time)) continue;
    if (i != before) lastInterval_.Set(i);
    return i;
  }
  const std::size_t i = LastIntervalFrom(keys_, t);
  lastInterval_.Set(i);
  return i;
}

double TAnimationTrack::ValueAtTime(double t) const {
  return Trail("TAnimationTrack::ValueAtTime", [&] {
    if (keys_.empty()) {
      return 0.0;
    }
    if (t < keys_.front().time) {
      return keys_.front().value;
    }
    if (keys_.back().time < t) {
      return keys_.back().value;
    }
    double result = keys_.front().value;
    if (keys_.size() > 1) {
      const std::size_t i = IntervalAt(t);
      result = EasedAt(keys_[i], keys_[i + 1], t);
    }
    // Deliberate: only here, so that a held end value keeps the smallest amounts.
    return std::abs(result) < kTiny ? 0.0 : result;
  });
}

}  // namespace lipvane
