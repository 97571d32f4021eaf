// The stand-in's own declaration; see ../../README.md.
#pragma once

#include <maya/MArgList.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

#include <memory>

#include "lipvane/host/arguments.h"

namespace lipvane_standin {

class MArgParser {
 public:
  MArgParser(const MSyntax& syntax, const MArgList& args, MStatus* status = nullptr);
  virtual ~MArgParser();
  bool isFlagSet(const char* flag, MStatus* status = nullptr) const;
  unsigned int numberOfFlagUses(const char* flag) const;

 protected:
  std::unique_ptr<lipvane::host::ArgDatabase> database_;
};

}  // namespace lipvane_standin
