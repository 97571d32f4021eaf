// The stand-in's own declaration; see ../../README.md.
#pragma once

#include <maya/MStatus.h>

namespace lipvane_standin {

class MTime {
 public:
  MTime();
  MStatus setValue(double value);

  // The stand-in's own.
  double Frame() const { return value_; }

 private:
  double value_;
};

}  // namespace lipvane_standin
