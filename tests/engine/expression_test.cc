#include "lipvane/engine/expression.h"

#include <gtest/gtest.h>

namespace lipvane {
namespace {

using Weights = std::vector<double>;

TBonePose Pose(const Vector3& translation, const Quaternion& rotation = {}) {
  TBonePose pose;
  pose.GetBone(0).translation = translation;
  pose.GetBone(0).rotation = rotation;
  return pose;
}

/// An expression of a few bones, of which its poses hold the first.
TExpressionInfo Expression(int bones, const std::vector<TBonePose>& poses) {
  TExpressionInfo expression;
  expression.boneNames.resize(static_cast<std::size_t>(bones), "bone");
  expression.poses = poses;
  return expression;
}

TEST(ExpressionTest, SinglePoseReplacesTheReference) {
  TExpressionInfo expression = Expression(2, {Pose({1, 2, 3}, {0, 3, 0, 0})});
  TBonePose reference = Pose({7, 7, 7});
  Weights weights;
  expression.Blend(&reference, weights, true);
  ASSERT_EQ(expression.blendedBones.size(), 2U);
  EXPECT_EQ(expression.blendedBones[0].translation, Vector3(1, 2, 3));
  EXPECT_EQ(expression.blendedBones[0].rotation, Quaternion(0, 3, 0, 0));
  EXPECT_EQ(expression.blendedBones[1].rotation, Quaternion());
  EXPECT_EQ(reference.BoneCount(), 2);

  TExpressionInfo empty = Expression(1, {});
  empty.blendedBones.resize(3);
  empty.Blend(nullptr, weights, true);
  EXPECT_TRUE(empty.poses.empty()) << "without a reference nothing changes";
  EXPECT_EQ(empty.blendedBones.size(), 3U);
  empty.Blend(&reference, weights, true);
  EXPECT_EQ(empty.poses.size(), 1U);
  EXPECT_EQ(empty.blendedBones[0].translation, Vector3());

  TExpressionInfo boneless = Expression(0, {});
  boneless.Blend(&reference, weights, true);
  EXPECT_TRUE(boneless.poses.empty());
}

TEST(ExpressionTest, BlendsBitForBitOnItsOwnFirstPose) {
  std::vector<TBonePose> poses;
  for (const float turn : {0.3F, 0.7F, 1.1F})
    poses.push_back(Pose({turn, 0, 0}, Quaternion::FromAxisAngle(turn, turn, 1, 0.2F)));
  TExpressionInfo expression = Expression(1, poses);
  TExpressionInfo other = expression;
  for (int i = 0; i < 50; ++i) {
    Weights weights = {0, 0.013 * i, 0.5};
    expression.Blend(weights);
    other.Blend(&other.GetPose(0), weights, false);
    EXPECT_EQ(expression.blendedBones[0].rotation, other.blendedBones[0].rotation) << i;
  }
}

TEST(ExpressionTest, TheReferenceMayBeItsOwnFirstPoseWhichGrowsOnTheWay) {
  TExpressionInfo blended = Expression(3, {Pose({1, 0, 0}), Pose({5, 4, 0})});
  Weights weights = {1, 0.5};
  blended.Blend(&blended.GetPose(0), weights, false);
  EXPECT_EQ(blended.blendedBones[0].translation, Vector3(3, 2, 0));
  EXPECT_EQ(blended.blendedBones[2].rotation, Quaternion());
}

}  // namespace
}  // namespace lipvane
