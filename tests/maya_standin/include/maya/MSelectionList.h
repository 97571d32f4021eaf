// The stand-in's own declaration; see ../../README.md.
#pragma once

#include <maya/MStatus.h>

namespace lipvane_standin {

class MSelectionList {
 public:
  MSelectionList();
  unsigned int length(MStatus* status = nullptr) const;

 private:
  friend class MGlobal;
  unsigned int length_;
};

}  // namespace lipvane_standin
