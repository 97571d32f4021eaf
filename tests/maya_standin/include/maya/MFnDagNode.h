// The stand-in's own declaration; see ../../README.md.
#pragma once

#include <maya/MDagPath.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MMatrix.h>

namespace lipvane_standin {

class MFnDagNode : public MFnDependencyNode {
 public:
  MFnDagNode();
  MFnDagNode(MObject& object, MStatus* status = nullptr);
  MFnDagNode(const MDagPath& path, MStatus* status = nullptr);
  ~MFnDagNode() override;
  MObject parent(unsigned int index, MStatus* status = nullptr) const;
  MMatrix transformationMatrix(MStatus* status = nullptr) const;
  MString fullPathName(MStatus* status = nullptr) const;
};

}  // namespace lipvane_standin
