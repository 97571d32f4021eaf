// The stand-in's own declaration; see ../../README.md.
#pragma once

namespace lipvane_standin {

class MFn {
 public:
  enum Type { kInvalid = 0 };
};

}  // namespace lipvane_standin
