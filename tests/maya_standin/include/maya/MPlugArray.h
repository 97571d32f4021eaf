// The stand-in's own declaration; see ../../README.md.
#pragma once

#include <maya/MPlug.h>

#include <vector>

namespace lipvane_standin {

class MPlugArray {
 public:
  MPlugArray();
  unsigned int length() const;
  MPlug& operator[](unsigned int index);

 private:
  friend class MPlug;
  std::vector<MPlug> plugs_;
};

}  // namespace lipvane_standin
