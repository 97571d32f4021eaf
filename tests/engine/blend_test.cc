#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

#include "lipvane/engine/bone_pose.h"

namespace lipvane {
namespace {

/// What one pose does to a bone that has not moved yet.
Quaternion Step(Quaternion pose, const Quaternion& neutral, float weight) {
  Vector3 translation;
  Quaternion rotation;
  _Blend({}, pose, {}, neutral, neutral.Inverse(), translation, rotation, weight);
  return rotation;
}

TEST(BlendTest, RotationsOfTheSameWayAreIgnored) {
  EXPECT_EQ(Step({1, 2e-4F, 0, 0}, {}, 1), Quaternion(-1, 0, 0, 0));
  EXPECT_NEAR(Step({1, 2e-3F, 0, 0}, {}, 1).x, -2e-3F, 1e-6F);
}

TEST(BlendTest, VanishingRotationFallsBack) {
  // Only a neutral rotation that is far from unit length comes to it.
  const Quaternion neutral(1e-3F, 0, 0, 0);
  const Quaternion q = Step(Quaternion(), neutral, 0);
  EXPECT_EQ(q, Quaternion(0, 0, 0, -1e-3F * 0.1F));
  EXPECT_EQ(Step(Quaternion(), {4e-3F, 0, 0, 0}, 0).z, 0);
}

TEST(BlendTest, PoseIsAlignedAndNormalisedInPlace) {
  Quaternion pose(-3, 0, 4, 0);
  Vector3 translation(1, 1, 1);
  Quaternion rotation;
  _Blend({5, 6, 7}, pose, {1, 2, 3}, {}, Quaternion().Inverse(), translation, rotation, -0.5F);
  EXPECT_EQ(pose, Quaternion(0.6F, 0, -0.8F, 0));
  EXPECT_EQ(translation, Vector3(-1, -1, -1));
}

TEST(BlendTest, WithoutPosesTheNeutralPoseIsMade) {
  TBonePoseInfo info;
  std::vector<double> weights;
  info.Blend(weights);
  EXPECT_EQ(info.poses.size(), 1U);
  info.poses.clear();

  info.AddBone("jaw");
  info.AddBone("lid");
  info.blendedBones.resize(1);
  info.blendedBones[0].boneIndex = 6;
  info.Blend(weights);
  EXPECT_EQ(info.GetPose(0).BoneCount(), 2);
  ASSERT_EQ(info.blendedBones.size(), 2U);
  EXPECT_EQ(info.blendedBones[1].rotation, Quaternion(-1, 0, 0, 0));
  EXPECT_EQ(info.blendedBones[0].boneIndex, 6);
}

TEST(BlendTest, WeightsGrowOnlyWhenThereAreSome) {
  TBonePoseInfo info;
  info.AddBone("jaw");
  info.GetPose(2).GetBone(0).translation = {1, 0, 0};
  using Weights = std::vector<double>;
  const std::vector<std::tuple<Weights, Weights, float>> cases = {
      {{}, {}, 0}, {{0.25}, {0.25, 0, 0}, 0}, {{0, 0, 2, 8}, {0, 0, 2, 8}, 2}};
  for (auto [weights, grown, translation] : cases) {
    info.Blend(weights);
    EXPECT_EQ(weights, grown);
    EXPECT_EQ(info.blendedBones[0].translation, Vector3(translation, 0, 0));
  }
}

TEST(BlendTest, NegativeZeroStaysOnlyWhereAllThatIsAddedIsNegativeZero) {
  TBonePoseInfo info;
  info.AddBone("jaw");
  for (int pose = 0; pose < 2; ++pose)
    info.GetPose(pose).GetBone(0).translation = {-0.0F, -0.0F, -0.0F};
  for (const double ofNeutral : {0.0, 1.0, -1.0}) {
    std::vector<double> weights = {ofNeutral, -1.0};
    info.Blend(weights);
    const Vector3& t = info.blendedBones[0].translation;
    for (const float number : {t.x, t.y, t.z})
      EXPECT_EQ(std::signbit(number), ofNeutral < 0.0) << ofNeutral;
  }
}

}  // namespace
}  // namespace lipvane
