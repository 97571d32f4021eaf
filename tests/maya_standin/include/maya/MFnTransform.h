// The stand-in's own declaration; see ../../README.md.
#pragma once

#include <maya/MFnDagNode.h>

namespace lipvane_standin {

class MFnTransform : public MFnDagNode {
 public:
  MFnTransform();
  ~MFnTransform() override;
};

}  // namespace lipvane_standin
