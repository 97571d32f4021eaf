#include "lipvane/engine/expression.h"

#include <gtest/gtest.h>

namespace lipvane {
namespace {

TIndexedBone Bone(const Vector3& translation, const Quaternion& rotation = {}) {
  TIndexedBone bone;
  bone.translation = translation;
  bone.rotation = rotation;
  return bone;
}

TEST(ExpressionTest, WithoutReferenceNothingChanges) {
  TExpressionInfo expression;
  expression.AddBone("lid");
  std::vector<double> weights{1};
  expression.Blend(nullptr, weights, true);
  EXPECT_TRUE(expression.blendedBones.empty());
  EXPECT_TRUE(expression.poses.empty());
}

TEST(ExpressionTest, SinglePoseReplacesTheReference) {
  TExpressionInfo expression;
  expression.AddBone("lid");
  expression.AddBone("brow");
  const TIndexedBone lid = Bone({1, 2, 3}, {0, 3, 0, 0});
  expression.GetPose(0).AddBone(lid);
  TBonePose reference;
  reference.AddBone(Bone({7, 7, 7}));
  std::vector<double> weights{0.5};
  expression.Blend(&reference, weights, true);
  ASSERT_EQ(expression.blendedBones.size(), 2U);
  EXPECT_EQ(expression.blendedBones[0].translation, lid.translation);
  EXPECT_EQ(expression.blendedBones[0].rotation, lid.rotation);
  EXPECT_EQ(expression.blendedBones[1].rotation, Quaternion());
  EXPECT_EQ(reference.BoneCount(), 2);

  TExpressionInfo empty;
  empty.AddBone("lid");
  empty.Blend(&reference, weights, true);
  EXPECT_EQ(empty.poses.size(), 1U);
  EXPECT_EQ(empty.blendedBones[0].translation, Vector3());
  EXPECT_EQ(empty.blendedBones[0].rotation, Quaternion());
}

TEST(ExpressionTest, PosesPullTheReferenceTowardsThem) {
  const float quarter = 1.57079633F;
  TExpressionInfo expression;
  expression.AddBone("lid");
  expression.GetPose(0).AddBone(Bone({1, 0, 0}, Quaternion::FromAxisAngle(quarter, 1, 0, 0)));
  expression.GetPose(1).AddBone(Bone({5, 4, 0}));
  TBonePose reference;
  reference.AddBone(Bone({1, 2, 0}));
  std::vector<double> weights{0.5};
  expression.Blend(&reference, weights, false);
  EXPECT_EQ(weights, (std::vector<double>{0.5, 0}));
  EXPECT_EQ(expression.blendedBones[0].translation, Vector3(1, 1, 0));
  // Half of the turn, its sign flipped by each of the two poses.
  const Quaternion half = Quaternion::FromAxisAngle(quarter / 2, 1, 0, 0);
  EXPECT_NEAR(expression.blendedBones[0].rotation.w, half.w, 1e-6F);
  EXPECT_NEAR(expression.blendedBones[0].rotation.x, half.x, 1e-6F);

  weights = {0, 0.25};
  expression.Blend(&reference, weights, false);
  EXPECT_EQ(expression.blendedBones[0].translation, Vector3(2, 2.5F, 0));
}

TEST(ExpressionTest, OwnFirstPoseMayBeTheReference) {
  TExpressionInfo expression;
  for (const char* name : {"lid", "brow", "nose"}) {
    expression.AddBone(name);
  }
  expression.GetPose(0).AddBone(Bone({1, 0, 0}));
  expression.GetPose(1).AddBone(Bone({3, 0, 0}));
  std::vector<double> weights{1, 0.5};
  expression.Blend(&expression.GetPose(0), weights, false);
  EXPECT_EQ(expression.blendedBones[0].translation, Vector3(2, 0, 0));
  EXPECT_EQ(expression.blendedBones[2].rotation, Quaternion());
}

}  // namespace
}  // namespace lipvane
