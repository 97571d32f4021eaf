// The stand-in's own declaration; see ../../README.md.
#pragma once

#include <maya/MObject.h>
#include <maya/MStatus.h>

namespace lipvane_standin {

class MFnBase {
 public:
  MFnBase();
  MFnBase(const MFnBase&) = delete;
  MFnBase& operator=(const MFnBase&) = delete;
  virtual ~MFnBase();
  MObject object(MStatus* status = nullptr) const;
  virtual MStatus setObject(MObject& object);

 protected:
  // The stand-in's own.
  virtual bool Takes(const MObject& object) const;
  MObject object_;
};

}  // namespace lipvane_standin
