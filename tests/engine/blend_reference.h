#pragma once

#include <Imath/ImathQuat.h>
#include <Imath/ImathVec.h>

#include <cmath>

#include "lipvane/engine/bone_pose.h"

namespace lipvane::test {

/// A bone's transform in double precision.
struct Stand {
  Imath::V3d translation;
  Imath::Quatd rotation;

  Stand(const Imath::V3d& t, const Imath::Quatd& r) : translation(t), rotation(r) {}
  explicit Stand(const TIndexedBone& bone)
      : translation(bone.translation.x, bone.translation.y, bone.translation.z),
        rotation(bone.rotation.w, bone.rotation.x, bone.rotation.y, bone.rotation.z) {}

  bool IsCloseTo(const Stand& other, double error) const {
    return translation.equalWithAbsError(other.translation, error) &&
           std::abs(rotation.r - other.rotation.r) < error &&
           rotation.v.equalWithAbsError(other.rotation.v, error);
  }
};

/// How often each way to interpolate was taken, and whether rounding could have taken another.
struct Taken {
  int neutral = 0, chord = 0, arc = 0;
  bool isDoubtful = false;
  bool isSignDoubtful = false;
};

/// One step of the blend as it is on paper, in double precision and by Imath's quaternions.
inline void AddStep(Stand& sum, const Stand& target, const Stand& base, double weight,
                    Taken& taken) {
  sum.translation += (target.translation - base.translation) * weight;
  const Imath::Quatd& from = base.rotation;
  Imath::Quatd to = target.rotation.normalized();
  double cosine = from ^ to;
  if (cosine < 0) {
    to = -to;
    cosine = -cosine;
  }
  if (std::abs(cosine - 0.55) < 1e-4) taken.isDoubtful = true;
  if (cosine < 1 - 2e-8 && cosine > 1 - 1e-6) taken.isDoubtful = true;
  Imath::Quatd between = from;
  if (cosine > 0.9999999) {
    ++taken.neutral;
  } else if (cosine > 0.55) {
    between = (from * (1 - weight) + to * weight).normalized();
    ++taken.chord;
  } else {
    const double angle = std::acos(cosine);
    between = (from * std::sin((1 - weight) * angle) + to * std::sin(weight * angle)).normalized();
    ++taken.arc;
  }
  sum.rotation *= -(~from) * between;
}

}  // namespace lipvane::test
