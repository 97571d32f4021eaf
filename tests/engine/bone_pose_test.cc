#include "lipvane/engine/bone_pose.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace lipvane {
namespace {

TBonePoseInfo Rig(const std::vector<int>& ids) {
  TBonePoseInfo info;
  for (const char* name : {"jaw", "brow", "lid"}) {
    info.AddBone(name);
  }
  info.boneIds = ids;
  return info;
}

TEST(BonePoseTest, GettersGrowTheirArrays) {
  TBonePose pose;
  pose.AddBone({});
  pose.GetBone(0).boneIndex = 4;
  EXPECT_EQ(pose.GetBone(3).rotation, Quaternion());
  EXPECT_EQ(pose.GetBone(0).boneIndex, 4);
  EXPECT_EQ(pose.BoneCount(), 4);

  TBonePoseInfo info;
  info.AddPose(pose);
  EXPECT_EQ(info.GetPose(5).BoneCount(), 0);
  EXPECT_EQ(info.GetPose(0).BoneCount(), 4);
  EXPECT_THROW(pose.GetBone(-1), std::out_of_range);
  EXPECT_THROW(info.GetPose(-1), std::out_of_range);
  EXPECT_EQ(info.poses.size(), 6U);
}

TEST(BonePoseTest, BonesByPosition) {
  TBonePoseInfo info = Rig({7});
  EXPECT_EQ(info.GetBoneName(2), "lid");
  for (const int outside : {-1, 3}) {
    EXPECT_EQ(info.GetBoneName(outside), "");
    EXPECT_EQ(info.GetBoneIndex(outside), -1);
  }
  EXPECT_EQ(info.GetBoneIndex(0), 7);
  EXPECT_EQ(info.boneIds.size(), 1U);
  EXPECT_EQ(info.GetBoneIndex(2), 0);
  EXPECT_EQ(info.boneIds, (std::vector<int>{7, 0, 0}));
}

TEST(BonePoseTest, BonesByIdentifier) {
  TBonePoseInfo info = Rig({7, 9, 7});
  EXPECT_EQ(info.FindBoneIndex(7), 0);  // the first of two
  EXPECT_EQ(info.FindBoneIndex(8), -1);
  EXPECT_EQ(info.FindBone(8), nullptr);
  EXPECT_TRUE(info.blendedBones.empty());
  TIndexedBone* bone = info.FindBone(9);
  ASSERT_EQ(info.blendedBones.size(), 2U);
  EXPECT_EQ(bone, &info.blendedBones[1]);

  info.AssignBoneIds({{"lid", 3}, {"jaw", 1}, {"tail", 8}});
  EXPECT_EQ(info.boneIds, (std::vector<int>{1, 0, 3}));
  info.GetPose(1);
  info.Clear();
  EXPECT_TRUE(info.boneNames.empty() && info.boneIds.empty() && info.poses.empty() &&
              info.blendedBones.empty());
}

}  // namespace
}  // namespace lipvane
