// The stand-in's own declaration; see ../../README.md.
#pragma once

#include <maya/MObject.h>
#include <maya/MStatus.h>

namespace lipvane_standin {

class MDagPath {
 public:
  MDagPath();
  MDagPath(const MDagPath& path);
  MDagPath& operator=(const MDagPath& path);
  virtual ~MDagPath();  // so the class has a typeinfo, which is the host's
  MObject transform(MStatus* status = nullptr) const;

  // The stand-in's own.
  explicit MDagPath(MObject::Content content);
  const MObject::Content& Held() const { return content_; }

 private:
  MObject::Content content_;
};

}  // namespace lipvane_standin
