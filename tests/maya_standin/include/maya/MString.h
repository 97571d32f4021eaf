// The stand-in's own declaration; see ../../README.md.
#pragma once

#include <maya/MTypes.h>

#include <string>

namespace lipvane_standin {

class MString {
 public:
  MString();
  MString(const char* text);
  const char* asChar() const;

 private:
  std::string text_;
};

}  // namespace lipvane_standin
