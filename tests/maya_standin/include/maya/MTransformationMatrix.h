// The stand-in's own declaration; see ../../README.md.
#pragma once

#include <maya/MMatrix.h>
#include <maya/MStatus.h>
#include <maya/MTypes.h>
#include <maya/MVector.h>

namespace lipvane_standin {

class MTransformationMatrix {
 public:
  enum RotationOrder { kXYZ = 1 };
  MTransformationMatrix(const MMatrix& matrix);
  MMatrix asMatrix() const;
  MVector getTranslation(MSpace::Space space, MStatus* status = nullptr) const;
  MStatus getScale(double scale[3], MSpace::Space space) const;
  MStatus getRotation(double rotation[3], RotationOrder& order) const;

 private:
  MMatrix matrix_;
};

}  // namespace lipvane_standin
