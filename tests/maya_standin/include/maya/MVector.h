// The stand-in's own declaration; see ../../README.md.
#pragma once

#include <maya/MTypes.h>

namespace lipvane_standin {

class MVector {
 public:
  double x, y, z;
};

}  // namespace lipvane_standin
