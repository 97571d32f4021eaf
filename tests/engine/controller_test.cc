#include "lipvane/engine/controller.h"

#include <gtest/gtest.h>

#include <cstddef>

namespace lipvane {
namespace {

TIndexedBone Bone(float x) {
  TIndexedBone bone;
  bone.translation = {x, 0, 0};
  return bone;
}

/// An expression that puts the bones of these identifiers to x, in one pose.
TExpressionInfo Expression(const std::string& name, const std::vector<int>& ids, float x) {
  TExpressionInfo expression;
  expression.name = name;
  expression.boneIds = ids;
  expression.boneNames.resize(ids.size());
  for (std::size_t i = 0; i < ids.size(); ++i) {
    expression.GetPose(0).AddBone(Bone(x));
  }
  return expression;
}

TAnimationTrack Constant(const std::string& name, double value) {
  TAnimationTrack track;
  track.name = name;
  track.AddKey({0, value});
  return track;
}

/// Bones 1 and 2 rest at 10 and 20; the only speech target puts them to 11 and 22.
class ControllerTest : public testing::Test {
 protected:
  ControllerTest() {
    TBonePoseInfo rig;
    rig.boneNames = {"jaw", "lid"};
    rig.boneIds = {1, 2};
    for (const float factor : {1.0F, 1.1F}) {
      TBonePose pose;
      pose.AddBone(Bone(10 * factor));
      pose.AddBone(Bone(20 * factor));
      rig.AddPose(pose);
    }
    controller_.SetBonePoseInfo(rig);
    animation_.AddTrack(Constant("Eat", 1.0));
  }

  void AddExpression(const TExpressionInfo& expression, double weight) {
    controller_.AddExpression(expression);
    animation_.AddExpressionTrack(Constant(expression.name, weight));
  }
  /// The frame at time 0.
  void Play() {
    controller_.InitializeBones(out_);
    EXPECT_FALSE(controller_.UpdateFacialAnim(animation_, 0, values_, out_));
  }
  float X(int i) { return out_.GetBone(i).translation.x; }

  TController controller_;
  TAnimation animation_;
  TBonePose out_;
  std::vector<double> values_;
};

TEST_F(ControllerTest, ListOfExpressions) {
  for (const int id : {5, 6, 7}) {
    controller_.AddExpression(Expression(id == 6 ? "Squint" : "Blink", {id}, 0));
  }
  EXPECT_EQ(controller_.GetExpression("Blink"), controller_.GetExpression(0));
  EXPECT_EQ(controller_.GetExpression("blink"), nullptr);
  EXPECT_EQ(controller_.GetExpression(3), nullptr);
  EXPECT_EQ(controller_.GetExpression(-1), nullptr);

  controller_.DeleteExpression("Frown");
  EXPECT_FALSE(controller_.AnimationsChanged());
  controller_.DeleteExpression("Blink");
  EXPECT_TRUE(controller_.AnimationsChanged());
  ASSERT_EQ(controller_.ExpressionCount(), 2);
  EXPECT_EQ(controller_.GetExpression("Blink")->boneIds[0], 7);
}

TEST_F(ControllerTest, ListOfAnimations) {
  controller_.DeleteAnimation(0);
  controller_.DeleteAnimation(-1);
  EXPECT_FALSE(controller_.AnimationsChanged());
  for (const int end : {40, 50}) {
    animation_.tracks[0].AddKey({end, 1.0});
    controller_.AddAnimation(animation_);
  }
  Play();
  EXPECT_TRUE(controller_.AnimationsChanged()) << "nothing takes it back";
  EXPECT_EQ(controller_.TotalAnimTime(), 90.0);  // both were digested
  EXPECT_EQ(controller_.GetAnimation(-1), nullptr);
  EXPECT_EQ(controller_.GetAnimation(2), nullptr);

  controller_.DeleteAnimation(0);
  ASSERT_EQ(controller_.AnimationCount(), 1);
  EXPECT_EQ(controller_.GetAnimation(0)->length, 50);
}

TEST_F(ControllerTest, OutputBonesInOrderOfFirstSight) {
  AddExpression(Expression("Blink", {2, 8, 5}, 0), 0);
  AddExpression(Expression("Squint", {5, 1, 4}, 0), 0);
  out_.GetBone(9).translation = {1, 2, 3};
  controller_.InitializeBones(out_);
  std::vector<int> ids;
  for (int i = 0; i < out_.BoneCount(); ++i) {
    ids.push_back(out_.GetBone(i).boneIndex);
    EXPECT_EQ(out_.GetBone(i).translation, Vector3());
  }
  EXPECT_EQ(ids, (std::vector<int>{1, 2, 8, 5, 4}));
}

TEST_F(ControllerTest, OutsideOfTheAnimationTheWeightsAreTakenAsTheyStand) {
  values_ = {0, 0.5};
  controller_.InitializeBones(out_);
  EXPECT_TRUE(controller_.UpdateFacialAnim(animation_, 7, values_, out_));
  EXPECT_EQ(X(1), 21);
}

TEST_F(ControllerTest, WeightsAreNormalisedOnlyAboveOne) {
  AddExpression(Expression("Blink", {2}, 120), 0.8);
  AddExpression(Expression("Squint", {2}, 30), 0.8);
  AddExpression(Expression("Frown", {1}, 50), 5.0);  // of no concern to bone 2
  Play();
  EXPECT_EQ(X(0), 50);
  EXPECT_EQ(out_.GetBone(0).rotation.w, -1);  // one step was taken: none for the speech
  EXPECT_FLOAT_EQ(X(1), 20 + 0.5F * 100 + 0.5F * 10);

  animation_.expressionTracks[1] = Constant("Squint", 0.2);
  Play();
  EXPECT_NEAR(X(1), 20 + 0.8 * 100 + 0.2 * 10, 1e-4);
  // The speech fills what they leave, and a negative weight leaves more.
  animation_.expressionTracks[1] = Constant("Squint", -1.0);
  Play();
  EXPECT_NEAR(X(1), 20 + 0.8 * 100 - 10 + 1.2 * 2, 1e-4);
}

TEST_F(ControllerTest, SumsAreInSinglePrecision) {
  // In double the weights would sum to more than 1 and the first become 1 - 2^-24.
  controller_.BonePoseInfo()->GetPose(0).GetBone(1).translation.x = 0;
  AddExpression(Expression("Blink", {2}, 16777216), 1.0);
  AddExpression(Expression("Squint", {2}, 0), 3e-8);
  Play();
  EXPECT_EQ(X(1), 16777216);
  // In double a remainder of 1e-9 would be left for the speech.
  controller_.DeleteExpression("Blink");
  controller_.GetExpression(0)->weight = 1 - 1e-9;
  controller_.BonePoseInfo()->blendedBones[1].translation.x = 3e9F;
  controller_.FinalBlend(out_);
  EXPECT_EQ(X(1), 0);
}

TEST_F(ControllerTest, BonesThatTheRigLacks) {
  AddExpression(Expression("Blink", {8}, 6), 0.5);
  AddExpression(Expression("Squint", {9}, 6), 0.0);
  controller_.InitializeBones(out_);
  out_.GetBone(3).translation.x = 77;
  controller_.UpdateFacialAnim(animation_, 0, values_, out_);
  ASSERT_EQ(out_.BoneCount(), 4);
  EXPECT_EQ(X(2), 3);  // half of the way from 0
  EXPECT_EQ(out_.GetBone(2).rotation, Quaternion(0, 0, 0, 0));
  EXPECT_EQ(X(3), 77);  // nothing moves it
  EXPECT_TRUE(controller_.GetExpression("Squint")->blendedBones.empty());
}

TEST_F(ControllerTest, MakesTheBonesThatItReads) {
  TBonePoseInfo& rig = *controller_.BonePoseInfo();
  rig.boneIds = {1, 2, 1, 7, 2, 5, 6};  // the first of an identifier counts
  AddExpression(Expression("Blink", {7, 9}, 6), 1.0);
  TExpressionInfo& blink = *controller_.GetExpression(0);
  blink.boneIds = {9, 6, 9, 8};
  blink.weight = 1.0;
  for (const int id : {7, 6, 1, 3}) {
    TIndexedBone bone;
    bone.boneIndex = id;
    out_.AddBone(bone);
  }
  rig.blendedBones = {Bone(30)};
  controller_.FinalBlend(out_);
  EXPECT_EQ(rig.poses[0].BoneCount(), 7);
  EXPECT_EQ(rig.blendedBones.size(), 4U);  // of bone 6 the expression leaves nothing
  EXPECT_EQ(blink.blendedBones.size(), 2U);
  EXPECT_EQ(X(2), 30);
}

TEST_F(ControllerTest, ComposesOntoTheNeutralPoseItself) {
  AddExpression(Expression("Blink", {2}, 120), 0.5);
  Play();
  TBonePose& neutral = controller_.BonePoseInfo()->GetPose(0);
  neutral.GetBone(0).boneIndex = 1;
  neutral.GetBone(1).boneIndex = 2;
  controller_.BonePoseInfo()->boneIds = {3, 3, 1, 2};  // so that it grows meanwhile
  controller_.BonePoseInfo()->blendedBones.resize(4, Bone(8));
  controller_.FinalBlend(neutral);
  EXPECT_EQ(neutral.GetBone(0).translation.x, 8);
  EXPECT_EQ(neutral.GetBone(1).translation.x, 60 + 4);
}

TEST_F(ControllerTest, WithoutNeutralPoseNothingMoves) {
  controller_.BonePoseInfo()->poses.clear();
  out_.AddBone(Bone(77));
  out_.GetBone(0).boneIndex = 1;
  controller_.FinalBlend(out_);
  EXPECT_EQ(X(0), 77);
}

TEST_F(ControllerTest, NeutralPose) {
  Play();
  TBonePose neutral = controller_.GetNeutralPose();
  ASSERT_EQ(neutral.BoneCount(), 2);
  EXPECT_EQ(neutral.GetBone(1).translation.x, 20);
  // It is blended like any other: each pose flips the sign of the rotations.
  EXPECT_EQ(neutral.GetBone(1).rotation, Quaternion());
  controller_.BonePoseInfo()->GetPose(2);
  EXPECT_EQ(controller_.GetNeutralPose().GetBone(1).rotation, Quaternion(-1, 0, 0, 0));
  TBonePose headless = controller_.GetNeutralPoseWithoutHeadBone();
  ASSERT_EQ(headless.BoneCount(), 1);
  EXPECT_EQ(headless.GetBone(0).translation.x, 10);
  EXPECT_EQ(TController().GetNeutralPoseWithoutHeadBone().BoneCount(), 0);
}

}  // namespace
}  // namespace lipvane
