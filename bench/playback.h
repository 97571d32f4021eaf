#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <random>
#include <vector>

namespace lipvane::bench {

enum class Order { kInTime, kRandom };

/// The moments of the frames, 60 a second, of a play of this length in milliseconds that is
/// repeated without end.
class Moments {
 public:
  Moments(double length, Order order) {
    for (std::size_t i = 0; i < kCount; ++i)
      times_.push_back(std::fmod(static_cast<double>(i) * 1000.0 / 60.0, length));
    if (order == Order::kRandom) std::shuffle(times_.begin(), times_.end(), std::mt19937(1));
  }

  double Next() {
    next_ = next_ + 1 < kCount ? next_ + 1 : 0;
    return times_[next_];
  }

 private:
  /// So many that a processor does not learn a random order by heart.
  static constexpr std::size_t kCount = 60000;

  std::vector<double> times_;
  std::size_t next_ = 0;
};

}  // namespace lipvane::bench
