#include <cmath>

#include "lipvane/engine/arrays.h"
#include "lipvane/engine/bone_pose.h"

// Everything here is in single precision: the thresholds decide by it.
namespace lipvane {
namespace {

constexpr float kSameRotation = 0.99999988079071044921875F;
constexpr float kLinear = 0.55F;
constexpr float kShortestSquared = 1e-5F;

Quaternion Sum(float k1, const Quaternion& q1, float k2, const Quaternion& q2) {
  return {k1 * q1.w + k2 * q2.w, k1 * q1.x + k2 * q2.x, k1 * q1.y + k2 * q2.y,
          k1 * q1.z + k2 * q2.z};
}

Quaternion Unit(const Quaternion& q) {
  const float squared = q.w * q.w + q.x * q.x + q.y * q.y + q.z * q.z;
  if (squared < kShortestSquared) {
    return {0.0F, 0.0F, 0.0F, 0.1F};  // deliberate: neither unit length nor the identity
  }
  const float scale = 1.0F / std::sqrt(squared);
  return {q.w * scale, q.x * scale, q.y * scale, q.z * scale};
}

/// The rotation that lies `weight` of the way from the neutral pose to a pose in its hemisphere.
Quaternion Interpolated(const Quaternion& neutral, const Quaternion& pose, float weight) {
  const float cosine =
      neutral.w * pose.w + neutral.x * pose.x + neutral.y * pose.y + neutral.z * pose.z;
  if (cosine > kSameRotation) {
    return neutral;
  }
  if (cosine > kLinear) {
    return Unit(Sum(1.0F - weight, neutral, weight, pose));
  }
  const float angle = std::acos(cosine);
  const float sine = std::sin(angle);
  return Unit(Sum(std::sin((1.0F - weight) * angle) / sine, neutral,
                  std::sin(weight * angle) / sine, pose));
}

}  // namespace

void _Blend(const Vector3& poseT, Quaternion& poseR,  // NOLINT(bugprone-reserved-identifier)
            const Vector3& neutralT, const Quaternion& neutralR, const Quaternion& neutralInverse,
            Vector3& accT, Quaternion& accR, float weight) {
  Trail("_Blend", [&] {
    accT.x += (poseT.x - neutralT.x) * weight;
    accT.y += (poseT.y - neutralT.y) * weight;
    accT.z += (poseT.z - neutralT.z) * weight;

    Quaternion::AlignHemisphere(poseR, neutralR);
    poseR.Normalize();
    accR *= Quaternion::Multiply(neutralInverse, Interpolated(neutralR, poseR, weight));
  });
}

void TBonePoseInfo::Blend(std::vector<double>& weights) {
  Trail("TBonePoseInfo::Blend", [&] {
    GetPose(0);
    for (int i = 0; i < static_cast<int>(boneNames.size()); ++i) {
      const TIndexedBone neutral = GetPose(0).GetBone(i);
      BlendBone(i, neutral, weights);
    }
  });
}

void TBonePoseInfo::BlendBone(int i, const TIndexedBone& reference, std::vector<double>& weights) {
  const Quaternion inverse = reference.rotation.Inverse();
  Vector3 translation = reference.translation;
  Quaternion rotation = reference.rotation;
  // Deliberate: the neutral pose takes its turn too. It moves nothing, but flips the rotation's
  // sign.
  for (int j = 0; j < static_cast<int>(poses.size()); ++j) {
    const float weight = WeightOfPose(weights, j);
    TIndexedBone pose = GetPose(j).GetBone(i);
    _Blend(pose.translation, pose.rotation, reference.translation, reference.rotation, inverse,
           translation, rotation, weight);
  }
  StoreBlended(i, translation, rotation);
}

void TBonePoseInfo::StoreBlended(int i, const Vector3& translation, const Quaternion& rotation) {
  TIndexedBone& blended = Grown(blendedBones, i);
  blended.translation = translation;
  blended.rotation = rotation;
}

}  // namespace lipvane
