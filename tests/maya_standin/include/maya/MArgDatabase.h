// The stand-in's own declaration; see ../../README.md.
#pragma once

#include <maya/MArgParser.h>

namespace lipvane_standin {

class MArgDatabase : public MArgParser {
 public:
  MArgDatabase(const MSyntax& syntax, const MArgList& args, MStatus* status = nullptr);
  ~MArgDatabase() override;
  MStatus getFlagArgument(const char* flag, unsigned int index, int& result) const;
  MStatus getFlagArgument(const char* flag, unsigned int index, MString& result) const;
};

}  // namespace lipvane_standin
