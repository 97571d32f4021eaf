#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace lipvane::cli {

/// More frames than this, over nine hours at 30 a second, are a mistake in the file or in the
/// rates.
inline constexpr std::size_t kMaxFrames = 1000000;

/// Moments at a steady rate from time 0 on, in the unit of an animation's times.
struct SampleRate {
  double framesPerSecond = 30.0;
  double ticksPerSecond = 1000.0;

  double TimeOf(std::size_t sample) const {
    return static_cast<double>(sample) * ticksPerSecond / framesPerSecond;
  }
  /// Whether a sample lies before a moment, and not just by what rounding leaves.
  bool IsBefore(std::size_t sample, double time) const {
    constexpr double kSmallestPartOfAFrame = 1e-6;
    return (time - TimeOf(sample)) * framesPerSecond > kSmallestPartOfAFrame * ticksPerSecond;
  }
  /// How many samples do not lie beyond a length (0 or more). Nothing, after saying so, when they
  /// are more than kMaxFrames.
  std::optional<std::size_t> CountUpTo(int length, const std::string& fileName) const;
};

}  // namespace lipvane::cli
