#include <cmath>

#include "lipvane/engine/math.h"

namespace lipvane {
namespace {

Vector3 Scaled(const Vector3& v, float factor) {
  return {v.x * factor, v.y * factor, v.z * factor};
}

}  // namespace

float Vector3::Length() const {
  // The squares of floats neither overflow nor vanish in double.
  const double dx = x;
  const double dy = y;
  const double dz = z;
  return static_cast<float>(std::sqrt(dx * dx + dy * dy + dz * dz));
}

void Vector3::SetLength(float length) {
  const float current = Length();
  if (current != length && current != 0.0F) {
    *this = Scaled(*this, length / current);
  }
}

Vector3 Vector3::Normalized() const {
  const float length = Length();
  return length == 1.0F || length == 0.0F ? *this : Scaled(*this, 1.0F / length);
}

}  // namespace lipvane
