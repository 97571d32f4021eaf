#include "bench/playback.h"

#include <algorithm>
#include <cmath>
#include <random>
#include <utility>

namespace lipvane::bench {
namespace {

std::vector<double> FrameTimes(double length, std::size_t count) {
  std::vector<double> times;
  for (std::size_t i = 0; i < count; ++i)
    times.push_back(std::fmod(static_cast<double>(i) * 1000.0 / 60.0, length));
  return times;
}

}  // namespace

Moments InOrder(double length, std::size_t count) {
  return Moments(FrameTimes(length, count));
}

Moments AtRandom(double length, std::size_t count) {
  std::vector<double> times = FrameTimes(length, count);
  std::shuffle(times.begin(), times.end(), std::mt19937(1));
  return Moments(std::move(times));
}

}  // namespace lipvane::bench
