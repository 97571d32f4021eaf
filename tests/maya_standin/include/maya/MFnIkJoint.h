// The stand-in's own declaration; see ../../README.md.
#pragma once

#include <maya/MFnTransform.h>
#include <maya/MQuaternion.h>

#include <memory>

#include "lipvane/host/host.h"

namespace lipvane_standin {

class MFnIkJoint : public MFnTransform {
 public:
  MFnIkJoint(MObject& object, MStatus* status = nullptr);
  ~MFnIkJoint() override;
  MStatus getOrientation(MQuaternion& quaternion) const;

 private:
  std::unique_ptr<lipvane::host::Joint> joint_;
};

}  // namespace lipvane_standin
