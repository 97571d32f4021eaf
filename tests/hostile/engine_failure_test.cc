// The engine, of whose allocations each fails in turn: what it keeps never answers for what was.

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "lipvane/engine/controller.h"
#include "tests/engine/bone_bytes.h"
#include "tests/support/allocations.h"

namespace lipvane::test {
namespace {

constexpr int kBones = 11;

class EngineFailure : public testing::Test {
 protected:
  EngineFailure() {
    for (int pose = 0; pose < 4; ++pose)
      rig_.AddPose(AnyPose());
    for (int bone = 0; bone < kBones; ++bone) {
      rig_.AddBone("a bone of a long name " + std::to_string(bone));
      rig_.boneIds.push_back(bone + 1);
    }
    for (const std::string name : {"an expression of one pose", "an expression of two poses"}) {
      TExpressionInfo expression;
      expression.name = name;
      expression.boneIds = {3, 2, 40};
      for (int bone = 0; bone < 3; ++bone)
        expression.AddBone("bone");
      expression.AddPose(AnyPose());
      if (name.back() == 's') expression.AddPose(AnyPose());
      expressions_.push_back(expression);
    }
    TAnimationTrack track;
    for (int key = 0; key < 20; ++key)
      track.AddKey({50 * key, Number()});
    for (int target = 0; target < 3; ++target)
      animation_.AddTrack(track);
    // Below zero somewhere: what is left for the speech is then taken step by step.
    track.AddKey({1000, -2.0});
    for (const TExpressionInfo& expression : expressions_) {
      track.name = expression.name;
      animation_.AddExpressionTrack(track);
    }
    animation_.Digest();
  }

  float Number() { return std::uniform_real_distribution<float>(-1, 1)(random_); }
  TBonePose AnyPose() {
    TBonePose pose;
    for (int bone = 0; bone < kBones; ++bone) {
      Quaternion rotation(2, Number(), Number(), Number());
      rotation.Normalize();
      pose.AddBone({{Number(), Number(), Number()}, rotation, 0});
    }
    return pose;
  }
  /// With nothing kept.
  TController Face() const {
    TController face;
    *face.BonePoseInfo() = rig_;
    for (const TExpressionInfo& expression : expressions_)
      face.AddExpression(expression);
    return face;
  }
  std::string Frame(TController& face, double time, TBonePose& out) {
    std::vector<double> weights;
    face.UpdateFacialAnim(animation_, time, weights, out);
    return Bytes(out.Bones());
  }

  std::mt19937 random_{7};
  TBonePoseInfo rig_;
  std::vector<TExpressionInfo> expressions_;
  TAnimation animation_;
};

TEST_F(EngineFailure, OfAFrameLeavesTheNextOneRight) {
  TBonePose all;
  Face().InitializeBones(all);
  TBonePose few;  // other bones on the same places
  for (const int id : {40, 5, 3, 1})
    few.AddBone({{}, {}, id});
  ForEachAllocation([&](Shortage& shortage) {
    TController face = Face();
    // Times of which the last takes the other way to blend, and outputs in turn.
    struct {
      double time = 0.0;
      TBonePose out;
      const TBonePose* shape = nullptr;
    } at;
    shortage.Do([&] {
      for (const double time : {100.0, 333.0, 990.0, 250.0}) {
        for (const TBonePose* shape : {&all, &few}) {
          at.time = time;
          at.shape = shape;
          at.out = *shape;
          Frame(face, time, at.out);
        }
        face.BonePoseInfo()->GetPose(2).GetBone(1).translation.x += 1.0F;
      }
    });
    TController fresh = Face();
    fresh.BonePoseInfo()->poses[2] = face.BonePoseInfo()->poses[2];
    for (const double time : {at.time, 990.0, 100.0}) {
      TBonePose expected = *at.shape;
      at.out = *at.shape;
      EXPECT_EQ(Frame(face, time, at.out), Frame(fresh, time, expected)) << time;
    }
  });
}

// What could not be added is not there, and what could is there whole.
TEST_F(EngineFailure, OfAddingAndCopyingLeavesWholeElements) {
  ForEachAllocation([&](Shortage& shortage) {
    TController face;
    TBonePose pose;
    TAnimation animation;
    TAnimationTrack track;
    const bool isDone = shortage.Do([&] {
      face.SetBonePoseInfo(rig_);
      for (int times = 0; times < 3; ++times) {
        face.AddExpression(expressions_[1]);
        face.AddAnimation(animation_);
        animation.AddTrack(animation_.tracks[0]);
        animation.AddExpressionTrack(animation_.expressionTracks[0]);
        animation.Digest();
        track.AddKey({times, 1.0});
        pose.AddBone(rig_.poses[1].Bones()[0]);
      }
      face.DeleteExpression("an expression of one pose");
      pose.GetBone(20).boneIndex = 4;
      pose.GrowTo(50);
      face.InitializeBones(pose);
      TController copy = face;
      copy.GetExpression(0)->name = "another expression with a name";
      copy = face;
      face = copy;
    });
    for (int i = 0; i < face.AnimationCount(); ++i) {
      EXPECT_EQ(face.GetAnimation(i)->length, animation_.length);
      EXPECT_EQ(face.GetAnimation(i)->expressionTracks.size(), 2u);
    }
    for (const TAnimationTrack& one : animation.tracks)
      EXPECT_EQ(one.KeyCount(), 20);
    for (int i = 0; i < track.KeyCount(); ++i)
      EXPECT_EQ(track.GetKey(i)->time, i);
    EXPECT_TRUE(!isDone || face.AnimationCount() + face.ExpressionCount() + track.KeyCount() == 9);
    // However far it came, all of it can be given anew.
    face = Face();
    TBonePose out;
    face.InitializeBones(out);
    TBonePose expected = out;
    TController fresh = Face();
    EXPECT_EQ(Frame(face, 100.0, out), Frame(fresh, 100.0, expected));
  });
}

}  // namespace
}  // namespace lipvane::test
