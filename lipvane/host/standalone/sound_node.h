#pragma once

#include <string>

namespace lipvane::standalone {

/// A sound on a scene's time line.
struct Sound {
  std::string fileName;  ///< as the scene is to name it
  double start = 0.0;    ///< the frame that it begins at
  double frames = 0.0;   ///< how long it is
};

/// The node that plays it.
struct SoundNode {
  std::string name;
  bool isNew = false;  ///< false when the scene had one for the file, which stays as it is
};

}  // namespace lipvane::standalone
