// The stand-in's own declaration; see ../../README.md.
#pragma once

#include <maya/MFnBase.h>
#include <maya/MString.h>

namespace lipvane_standin {

class MFnDependencyNode : public MFnBase {
 public:
  MFnDependencyNode() = default;
  MFnDependencyNode(MObject& object, MStatus* status = nullptr);
  ~MFnDependencyNode() override;
  MString name(MStatus* status = nullptr) const;
  MObject attribute(const MString& name, MStatus* status = nullptr) const;
};

}  // namespace lipvane_standin
