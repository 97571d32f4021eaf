// The stand-in's own declaration; see ../../README.md.
#pragma once

namespace lipvane_standin {

class MSpace {
 public:
  enum Space { kInvalid = 0, kTransform = 1, kPreTransform = 2, kPostTransform = 3, kWorld = 4 };
};

}  // namespace lipvane_standin
