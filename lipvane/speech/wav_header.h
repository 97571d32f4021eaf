#pragma once

#include <cstdint>
#include <string>

namespace lipvane::speech {

/// What the header of a WAV file says of its sound.
struct WavHeader {
  unsigned channels = 0;
  double samplesPerSecond = 0.0;
  unsigned bitsPerSample = 0;
  std::uint64_t samples = 0;  ///< of one channel

  double Seconds() const { return static_cast<double>(samples) / samplesPerSecond; }
};

/// Reads the header of a WAV file of samples that are not compressed (integers, floating point or
/// logarithmic ones); the samples themselves are not read. False with a reason, and `header` left
/// alone, when it is none or holds less than it says.
bool ReadWavHeader(const std::string& fileName, WavHeader& header, std::string& reason);

}  // namespace lipvane::speech
