// Texts, statuses, objects, times and the small mathematical types.

#include <maya/MDagPath.h>
#include <maya/MMatrix.h>
#include <maya/MObject.h>
#include <maya/MQuaternion.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MTime.h>

#include <cstddef>
#include <utility>

#include "tests/maya_standin/content.h"

namespace lipvane_standin {

MStatus::MStatus(MStatusCode code) : code_(code) {}
void MStatus::perror(const char* label) const {
  standin::Host().PrintStatus(static_cast<lipvane::host::StatusCode>(code_), label);
}

MString::MString() = default;
MString::MString(const char* text) : text_(text) {}
const char* MString::asChar() const {
  return text_.c_str();
}

MObject::MObject() = default;
MObject::MObject(Content content) : content_(std::move(content)) {}
bool MObject::isNull() const {
  return content_ == nullptr;
}

MDagPath::MDagPath() = default;
MDagPath::MDagPath(const MDagPath&) = default;
MDagPath& MDagPath::operator=(const MDagPath&) = default;
MDagPath::~MDagPath() = default;
MDagPath::MDagPath(MObject::Content content) : content_(std::move(content)) {}

// The unit is that of the time line, and the value is 1 until it is set.
MTime::MTime() : value_(1.0) {}
MStatus MTime::setValue(double value) {
  value_ = value;
  return MStatus::kSuccess;
}

MQuaternion::MQuaternion() : x(0.0), y(0.0), z(0.0), w(1.0) {}

MMatrix::MMatrix(const double m[4][4]) : matrix{} {
  for (std::size_t row = 0; row < 4; ++row) {
    for (std::size_t column = 0; column < 4; ++column)
      matrix[row][column] = m[row][column];
  }
}

}  // namespace lipvane_standin
