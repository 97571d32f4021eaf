// The stand-in's own declaration; see ../../README.md.
#pragma once

#include <maya/MStatus.h>
#include <maya/MString.h>

#include <vector>

namespace lipvane_standin {

class MArgList {
 public:
  MArgList();
  unsigned int length(MStatus* status = nullptr) const;
  MString asString(unsigned int index, MStatus* status = nullptr) const;
  MStatus addArg(const MString& arg);

 private:
  std::vector<MString> args_;
};

}  // namespace lipvane_standin
