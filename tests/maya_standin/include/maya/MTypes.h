// The stand-in's own declaration; see ../../README.md.
#pragma once

#define MAYA_API_VERSION 20240200

#ifndef PLUGIN_EXPORT
#define PLUGIN_EXPORT __attribute__((visibility("default")))
#endif

// As in releases since 2018, the classes live in a namespace that all may use.
namespace lipvane_standin {
class MDGModifier;
class MAnimCurveChange;
namespace standin {
struct Content;
}

class MSpace {
 public:
  enum Space { kWorld = 4 };
};

}  // namespace lipvane_standin
using namespace lipvane_standin;
