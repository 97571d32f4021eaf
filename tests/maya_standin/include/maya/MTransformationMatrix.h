// The stand-in's own declaration; see ../../README.md.
#pragma once

#include <maya/MMatrix.h>
#include <maya/MSpace.h>
#include <maya/MStatus.h>
#include <maya/MVector.h>

namespace lipvane_standin {

class MTransformationMatrix {
 public:
  enum RotationOrder {
    kInvalid = 0,
    kXYZ = 1,
    kYZX = 2,
    kZXY = 3,
    kXZY = 4,
    kYXZ = 5,
    kZYX = 6,
  };
  MTransformationMatrix(const MMatrix& matrix);
  MMatrix asMatrix() const;
  MVector getTranslation(MSpace::Space space, MStatus* status = nullptr) const;
  MStatus getScale(double scale[3], MSpace::Space space) const;
  MStatus getRotation(double rotation[3], RotationOrder& order) const;

 private:
  MMatrix matrix_;
};

}  // namespace lipvane_standin
