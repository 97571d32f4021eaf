#pragma once

#include <cmath>

/// The naive reference: every hot path once more, scalar and straight from the formulas, with
/// nothing kept between calls. It shares no code with the product, so that its times are a measure
/// that stays put and its results are a witness.
namespace lipvane::bench::naive {

struct Vec {
  float x = 0.0F, y = 0.0F, z = 0.0F;
};

struct Quat {
  float w = 1.0F, x = 0.0F, y = 0.0F, z = 0.0F;
};

struct Bone {
  Vec translation;
  Quat rotation;
};

inline float Dot(const Quat& a, const Quat& b) {
  return a.w * b.w + a.x * b.x + a.y * b.y + a.z * b.z;
}

inline Quat Sum(float k1, const Quat& a, float k2, const Quat& b) {
  return {k1 * a.w + k2 * b.w, k1 * a.x + k2 * b.x, k1 * a.y + k2 * b.y, k1 * a.z + k2 * b.z};
}

/// The Hamilton product.
inline Quat Product(const Quat& a, const Quat& b) {
  return {
      a.w * b.w - a.x * b.x - a.y * b.y - a.z * b.z, a.w * b.x + a.x * b.w + a.y * b.z - a.z * b.y,
      a.w * b.y - a.x * b.z + a.y * b.w + a.z * b.x, a.w * b.z + a.x * b.y - a.y * b.x + a.z * b.w};
}

/// A pose's rotation in the hemisphere of the neutral one, at length 1; the identity when it has no
/// length.
inline Quat Aligned(Quat pose, const Quat& neutral) {
  const Quat sum = Sum(1.0F, pose, 1.0F, neutral);
  const Quat difference = Sum(1.0F, pose, -1.0F, neutral);
  if (Dot(sum, sum) < Dot(difference, difference)) pose = {-pose.w, -pose.x, -pose.y, -pose.z};
  const float length = std::sqrt(Dot(pose, pose));
  if (!(length > 0.0F)) return {};
  return {pose.w / length, pose.x / length, pose.y / length, pose.z / length};
}

/// What lies `weight` of the way from the neutral rotation to an aligned one.
inline Quat Between(const Quat& neutral, const Quat& aligned, float weight) {
  const float cosine = Dot(neutral, aligned);
  if (cosine > 0.9999999F) return neutral;
  float k1 = 1.0F - weight;
  float k2 = weight;
  if (!(cosine > 0.55F)) {
    const float angle = std::acos(cosine);
    k1 = std::sin((1.0F - weight) * angle) / std::sin(angle);
    k2 = std::sin(weight * angle) / std::sin(angle);
  }
  const Quat sum = Sum(k1, neutral, k2, aligned);
  const float squared = Dot(sum, sum);
  if (squared < 1e-5F) return {0.0F, 0.0F, 0.0F, 0.1F};
  const float scale = 1.0F / std::sqrt(squared);
  return {sum.w * scale, sum.x * scale, sum.y * scale, sum.z * scale};
}

/// Adds `weight` times the target's difference from the base.
inline void AddStep(const Bone& target, const Bone& base, float weight, Bone& sum) {
  sum.translation.x += (target.translation.x - base.translation.x) * weight;
  sum.translation.y += (target.translation.y - base.translation.y) * weight;
  sum.translation.z += (target.translation.z - base.translation.z) * weight;
  const Quat& r = base.rotation;
  const Quat inverse = {-r.w, r.x, r.y, r.z};
  const Quat between = Between(r, Aligned(target.rotation, r), weight);
  sum.rotation = Product(sum.rotation, Product(inverse, between));
}

}  // namespace lipvane::bench::naive
