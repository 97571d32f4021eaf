#pragma once

#include <optional>
#include <string>
#include <vector>

namespace lipvane::cli {

struct CheckOptions {
  std::vector<std::string> files;
  std::string scene;      ///< what pose files are held against; empty for none
  std::string nameSpace;  ///< that the bones are in there; empty for the root
  bool asJson = false;
  std::string tier;  ///< of timing files; empty for that of sounds
  /// What sounds are to be no shorter than a frame of; the scene's own rate when not given, without
  /// a scene kFilmRate.
  std::optional<double> framesPerSecond;
};

inline constexpr double kFilmRate = 24.0;

/// Says what is odd about pose, animation and timing files, one finding a line or as JSON. Returns
/// the exit status.
int Check(const CheckOptions& options);

}  // namespace lipvane::cli
