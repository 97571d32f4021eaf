#include "lipvane/engine/track.h"

#include <cmath>
#include <cstddef>

#include "lipvane/engine/trail.h"

namespace lipvane {
namespace {

constexpr double kTiny = 4.440892098500626e-16;  // twice the epsilon of double

/// The start of the first interval that holds `t`. The last one when none does: `t` is the last
/// key's time, or the keys are out of order.
std::size_t IntervalAt(const std::vector<TAnimationKey>& keys, double t) {
  std::size_t i = 0;
  while (i < keys.size() - 2 && !(keys[i].time <= t && t < keys[i + 1].time)) {
    ++i;
  }
  return i;
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
  Trail("TAnimationTrack::AddKey", [&] { keys_.push_back(key); });
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
  });
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
      const std::size_t i = IntervalAt(keys_, t);
      result = EasedAt(keys_[i], keys_[i + 1], t);
    }
    // Deliberate: only here, so that a held end value keeps the smallest amounts.
    return std::abs(result) < kTiny ? 0.0 : result;
  });
}

}  // namespace lipvane
