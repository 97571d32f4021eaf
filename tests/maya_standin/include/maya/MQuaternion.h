// The stand-in's own declaration; see ../../README.md.
#pragma once

#include <maya/MTypes.h>

namespace lipvane_standin {

/// The scalar comes last.
class MQuaternion {
 public:
  MQuaternion();
  double x, y, z, w;
};

}  // namespace lipvane_standin
