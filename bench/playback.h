#pragma once

#include <cstddef>
#include <vector>

#include "lipvane/engine/track.h"

namespace lipvane::bench {

/// Goes round and round through moments.
class Moments {
 public:
  explicit Moments(std::vector<double> times) : times_(std::move(times)) {}
  double Next() {
    const double time = times_[next_];
    next_ = next_ + 1 < times_.size() ? next_ + 1 : 0;
    return time;
  }

 private:
  std::vector<double> times_;
  std::size_t next_ = 0;
};

/// The moments of so many frames, 60 a second, of a play of this length in milliseconds; played
/// again from its start when there are more.
Moments InOrder(double length, std::size_t count);
/// The same moments in any order.
Moments AtRandom(double length, std::size_t count);

/// More than a processor could learn by heart, were they few enough to repeat.
inline constexpr std::size_t kMoments = 60000;

}  // namespace lipvane::bench
