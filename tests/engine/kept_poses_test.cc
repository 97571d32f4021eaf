// What a rig keeps of its poses never answers for poses that were.

#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "lipvane/engine/controller.h"
#include "tests/engine/bone_bytes.h"

namespace lipvane {
namespace {

using test::Bytes;
using Weights = std::vector<double>;

constexpr int kBones = 11;

class KeptPosesTest : public testing::Test {
 protected:
  KeptPosesTest() {
    for (int i = 0; i < kBones; ++i) {
      rig_.AddBone(std::to_string(i));
      rig_.boneIds.push_back(100 + i);
    }
    for (int i = 0; i < 4; ++i)
      rig_.AddPose(AnyPose());
  }

  float Number() { return std::uniform_real_distribution<float>(-1, 1)(random_); }

  TIndexedBone AnyBone() {
    Quaternion rotation(2, Number(), Number(), Number());
    rotation.Normalize();
    return {{Number(), Number(), Number()}, rotation, 0};
  }

  TBonePose AnyPose() {
    TBonePose pose;
    for (int i = 0; i < kBones; ++i)
      pose.AddBone(AnyBone());
    return pose;
  }

  /// The same rig, of which nothing was kept.
  static TBonePoseInfo Fresh(const TBonePoseInfo& rig) {
    TBonePoseInfo fresh;
    fresh.boneNames = rig.boneNames;
    fresh.boneIds = rig.boneIds;
    for (const TBonePose& pose : rig.poses) {
      fresh.AddPose({});
      for (const TIndexedBone& bone : pose.Bones())
        fresh.poses.back().AddBone(bone);
    }
    return fresh;
  }

  static std::string Blended(TBonePoseInfo& rig) {
    Weights weights = {0.1, 0.7, -0.2, 0.4, 0.3, 0.6};
    rig.blendedBones.clear();
    rig.Blend(weights);
    return Bytes(rig.blendedBones);
  }

  std::mt19937 random_{3};
  TBonePoseInfo rig_;
};

TEST_F(KeptPosesTest, WhateverChangesAPoseCounts) {
  Blended(rig_);
  TBonePose& pose = rig_.GetPose(2);
  TIndexedBone& neutral = rig_.GetPose(0).GetBone(3);
  TIndexedBone& bone = pose.GetBone(5);
  const TBonePose assigned = AnyPose();
  TBonePose other = AnyPose();
  TIndexedBone& ofOther = other.GetBone(1);
  const std::vector<std::pair<const char*, std::function<void()>>> changes = {
      {"nothing", [] {}},
      {"a bone's translation", [&] { bone.translation.y += 1; }},
      {"a bone's rotation", [&] { bone.rotation = AnyBone().rotation; }},
      {"a neutral bone", [&] { neutral = AnyBone(); }},
      {"an assigned pose, and its bone that was lent", [&] { pose = assigned; }},
      {"that bone", [&] { bone.rotation = AnyBone().rotation; }},
      {"another pose of the rig over it", [&] { pose = rig_.poses[3]; }},
      {"that bone", [&] { bone.rotation = AnyBone().rotation; }},
      {"a pose that came with its lent bone", [&] { rig_.poses[1] = std::move(other); }},
      {"that bone", [&] { ofOther = AnyBone(); }},
      {"exchanged poses", [&] { std::swap(rig_.poses[1], rig_.poses[3]); }},
      {"the bone of one of them", [&] { ofOther = AnyBone(); }},
      {"a pose between", [&] { rig_.poses.insert(rig_.poses.begin() + 1, AnyPose()); }},
      {"a bone lent before that", [&] { neutral = AnyBone(); }},
      {"a pose less", [&] { rig_.poses.erase(rig_.poses.begin()); }},
      {"a pose more", [&] { rig_.AddPose(AnyPose()); }},
      {"a shorter pose", [&] { rig_.poses[1] = TBonePose(); }},
      {"a bone more", [&] { rig_.AddBone("more"); }},
      {"a bone less", [&] { rig_.boneNames.resize(7); }},
      {"other poses where these were",
       [&] {
         rig_.poses.clear();
         for (int i = 0; i < 4; ++i)
           rig_.AddPose(AnyPose());
       }},
  };
  std::string before;
  for (const auto& [what, change] : changes) {
    change();
    TBonePoseInfo fresh = Fresh(rig_);
    const std::string expected = Blended(fresh);
    EXPECT_TRUE(Blended(rig_) == expected) << what;
    EXPECT_TRUE(Blended(rig_) == expected) << what << ", once more";
    EXPECT_FALSE(expected == before) << what << " changes nothing: it tests nothing";
    before = expected;
  }
}

TEST_F(KeptPosesTest, CopiesThatGrowApartAreTold) {
  Blended(rig_);
  std::vector<TBonePose> copies(3, rig_.poses[1]);
  copies[0].AddBone(AnyBone());
  copies[1].AddBone(AnyBone());
  copies[2].GrowTo(kBones + 1);
  rig_.AddBone("more");
  for (const TBonePose& copy : copies) {
    rig_.poses[1] = copy;
    TBonePoseInfo fresh = Fresh(rig_);
    EXPECT_EQ(Blended(rig_), Blended(fresh));
  }
}

TEST_F(KeptPosesTest, CopiesGoTheirOwnWays) {
  const std::string before = Blended(rig_);
  TBonePoseInfo copy = rig_;
  rig_.GetPose(1).GetBone(0).translation.x += 1;
  EXPECT_EQ(Blended(copy), before);
  TBonePoseInfo fresh = Fresh(rig_);
  EXPECT_EQ(Blended(rig_), Blended(fresh));
  copy.GetPose(1).GetBone(0).translation.x += 1;
  EXPECT_EQ(Blended(copy), Blended(fresh));
}

TEST_F(KeptPosesTest, ThreadsBlendCopiesOfOneFace) {
  const std::string before = Blended(rig_);
  std::vector<std::thread> threads;
  std::vector<int> wrong(4, 0);
  for (int& count : wrong) {
    threads.emplace_back([&count, &before, copy = rig_]() mutable {
      for (int i = 0; i < 300; ++i) {
        count += Blended(copy) == before ? 0 : 1;
        copy = TBonePoseInfo(copy);
        float& x = copy.GetPose(1).GetBone(0).translation.x;
        x += 1;
        count += Blended(copy) == before ? 1 : 0;
        x -= 1;
      }
    });
  }
  for (std::thread& thread : threads)
    thread.join();
  EXPECT_EQ(wrong, std::vector<int>(4, 0));
}

TEST_F(KeptPosesTest, IdentifiersOfAComposedFaceMayChange) {
  TController face;
  face.SetBonePoseInfo(rig_);
  for (int e = 0; e < 2; ++e) {
    TExpressionInfo expression;
    expression.name = std::to_string(e);
    expression.boneNames = {"a", "b"};
    expression.boneIds = {100 + e, 300};
    expression.AddPose(AnyPose());
    face.AddExpression(expression);
  }
  TAnimation animation;
  animation.length = 10;
  for (const char* name : {"0", "1"}) {
    animation.expressionTracks.emplace_back().name = name;
    animation.expressionTracks.back().AddKey({0, 0.4});
  }
  TBonePose out;
  face.InitializeBones(out);
  const std::vector<std::pair<const char*, std::function<void()>>> changes = {
      {"nothing", [] {}},
      {"the output", [&] { std::swap(out.GetBone(2).boneIndex, out.GetBone(9).boneIndex); }},
      {"the rig", [&] { face.BonePoseInfo()->boneIds[4] = 108; }},
      {"an expression", [&] { face.GetExpression(1)->boneIds[0] = 106; }},
      {"doubled ones",
       [&] {
         face.GetExpression(0)->boneIds = {105, 105};
       }},
      {"unknown ones", [&] { out.GetBone(1).boneIndex = 7; }},
      {"an expression less", [&] { face.DeleteExpression("0"); }},
      {"a bone less", [&] {
         TBonePose less;
         for (int i = 1; i < out.BoneCount(); ++i)
           less.AddBone(out.GetBone(i));
         out = less;
       }}};
  for (const auto& [what, change] : changes) {
    change();
    TController fresh;
    fresh.SetBonePoseInfo(Fresh(*face.BonePoseInfo()));
    for (int e = 0; e < face.ExpressionCount(); ++e)
      fresh.AddExpression(*face.GetExpression(e));
    TBonePose expected = out;
    Weights weights = {0, 0.5, 0.25, 0};
    fresh.UpdateFacialAnim(animation, 20, weights, expected);
    face.UpdateFacialAnim(animation, 20, weights, out);
    EXPECT_TRUE(Bytes(out.Bones()) == Bytes(expected.Bones())) << what;
  }
}

}  // namespace
}  // namespace lipvane
