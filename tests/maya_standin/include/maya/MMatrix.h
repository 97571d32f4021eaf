// The stand-in's own declaration; see ../../README.md.
#pragma once

#include <maya/MTypes.h>

namespace lipvane_standin {

class MMatrix {
 public:
  explicit MMatrix(const double m[4][4]);
  double matrix[4][4];
};

}  // namespace lipvane_standin
