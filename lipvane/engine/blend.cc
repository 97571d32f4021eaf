#include <cmath>
#include <cstddef>
#include <numeric>

#include "lipvane/engine/arrays.h"
#include "lipvane/engine/bone_pose.h"
#include "lipvane/engine/interpolation.h"
#include "lipvane/engine/step_batch.h"

// Everything here is in single precision: the thresholds decide by it.
namespace lipvane {
namespace {

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

void _Blend(const Vector3& poseT, Quaternion& poseR, const Vector3& neutralT,
            const Quaternion& neutralR, const Quaternion& neutralInverse, Vector3& accT,
            Quaternion& accR, float weight) {
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
    TBonePose& start = GetPose(0);
    if (boneNames.empty()) return;
    GrowForBlend(start, weights);
    const std::vector<int>& left =
        kept_.Blend(start, poses, weights, boneNames.size(), blendedBones);
    AddPoses(left, start, weights);
  });
}

void TBonePoseInfo::BlendExactly(std::vector<double>& weights) {
  Trail("TBonePoseInfo::Blend", [&] { BlendStepByStep(GetPose(0), weights); });
}

void TBonePoseInfo::BlendStepByStep(TBonePose& start, std::vector<double>& weights) {
  if (boneNames.empty()) return;
  GrowForBlend(start, weights);
  std::vector<int> all(boneNames.size());
  std::iota(all.begin(), all.end(), 0);
  AddPoses(all, start, weights);
}

void TBonePoseInfo::GrowForBlend(TBonePose& start, std::vector<double>& weights) {
  const int bones = static_cast<int>(boneNames.size());
  start.GrowTo(bones);
  for (TBonePose& pose : poses) {
    pose.GrowTo(bones);
  }
  // Deliberate: an empty list stays empty and means that every weight is 0.
  if (!weights.empty() && weights.size() < poses.size()) weights.resize(poses.size());
  Grown(blendedBones, bones - 1);
}

void TBonePoseInfo::AddPoses(const std::vector<int>& bones, const TBonePose& start,
                             const std::vector<double>& weights) {
  if (bones.empty()) return;
  for (const int i : bones) {
    const TIndexedBone& from = start.Bones()[static_cast<std::size_t>(i)];
    StoreBlended(i, from.translation, from.rotation);
  }
  StepBatch steps;
  // Deliberate: the neutral pose takes its turn too. It moves nothing, but flips the rotation's
  // sign.
  for (std::size_t j = 0; j < poses.size(); ++j) {
    const float weight = weights.empty() ? 0.0F : static_cast<float>(weights[j]);
    for (const int i : bones) {
      const auto bone = static_cast<std::size_t>(i);
      TIndexedBone& blended = blendedBones[bone];
      steps.Add({&poses[j].Bones()[bone], &start.Bones()[bone], &blended, &blended, weight});
    }
    steps.Flush();
  }
}

void TBonePoseInfo::StoreBlended(int i, const Vector3& translation, const Quaternion& rotation) {
  TIndexedBone& blended = Grown(blendedBones, i);
  blended.translation = translation;
  blended.rotation = rotation;
}

}  // namespace lipvane
