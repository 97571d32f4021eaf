#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace lipvane::cli {

/// Keys of one bake. They are held in memory: this many take some ten gigabytes.
inline constexpr std::size_t kMaxBakedKeys = std::size_t{1} << 26;

struct BakeOptions {
  std::string scene;
  std::string lbp;
  std::string ltf;
  std::string output;
  std::string sound;                      ///< a WAV file for the scene to play; may be empty
  std::optional<double> framesPerSecond;  ///< the scene's own rate when it is not given
  double ticksPerSecond = 1000.0;
  double start = 0.0;     ///< the frame that time 0 falls on
  bool force = false;     ///< also where the pose file lacks poses
  std::string nameSpace;  ///< of the joints in the scene; empty for the root
};

/// Plays an animation onto the joints of a scene, one key a frame, and saves the scene or, when the
/// output's name ends so, a script of the keys. Returns the exit status.
int Bake(const BakeOptions& options);

}  // namespace lipvane::cli
