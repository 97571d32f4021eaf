// The stand-in's own declaration; see ../../README.md.
#pragma once

#include <maya/MObject.h>
#include <maya/MStatus.h>
#include <maya/MTypes.h>

namespace lipvane_standin {

class MPlugArray;

class MPlug {
 public:
  MPlug(const MObject& node, const MObject& attribute);
  bool isLocked(MStatus* status = nullptr) const;
  bool isChild(MStatus* status = nullptr) const;
  MPlug parent(MStatus* status = nullptr) const;
  MObject node(MStatus* status = nullptr) const;
  bool connectedTo(MPlugArray& array, bool asDst, bool asSrc, MStatus* status = nullptr) const;

 private:
  MObject node_;
  MObject attribute_;
  bool isCompound_ = false;
};

}  // namespace lipvane_standin
