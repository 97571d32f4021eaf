// The stand-in's own declaration; see ../../README.md.
#pragma once

#include <maya/MStatus.h>
#include <maya/MTime.h>

namespace lipvane_standin {

class MAnimControl {
 public:
  static MStatus setCurrentTime(const MTime& time);
};

}  // namespace lipvane_standin
