// The stand-in's own declaration; see ../../README.md.
#pragma once

namespace lipvane_standin {

class MSpace {
 public:
  enum Space { kWorld = 4 };
};

}  // namespace lipvane_standin
