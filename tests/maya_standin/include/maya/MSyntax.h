// The stand-in's own declaration; see ../../README.md.
#pragma once

#include <maya/MStatus.h>

#include "lipvane/host/syntax.h"

namespace lipvane_standin {

class MSyntax {
 public:
  enum MArgType {
    kInvalidArgType = 0,
    kNoArg = 1,
    kBoolean = 2,
    kLong = 3,
    kDouble = 4,
    kString = 5,
  };
  MSyntax();
  MStatus addFlag(const char* shortName, const char* longName, MArgType argType1 = kNoArg,
                  MArgType argType2 = kNoArg, MArgType argType3 = kNoArg,
                  MArgType argType4 = kNoArg, MArgType argType5 = kNoArg,
                  MArgType argType6 = kNoArg);
  MStatus makeFlagMultiUse(const char* flag);

  // The stand-in's own.
  const lipvane::host::Syntax& Flags() const { return flags_; }

 private:
  lipvane::host::Syntax flags_;
};

}  // namespace lipvane_standin
