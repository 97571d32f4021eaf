#include "lipvane/engine/bone_pose.h"

#include <algorithm>
#include <cstddef>

#include "lipvane/engine/arrays.h"

namespace lipvane {

void TBonePose::AddBone(const TIndexedBone& bone) {
  Trail("TBonePose::AddBone", [&] {
    stamp_.Changed();
    bones_.push_back(bone);
  });
}

TIndexedBone& TBonePose::GetBone(int i) {
  return Trail("TBonePose::GetBone", [&]() -> TIndexedBone& {
    stamp_.Lent();
    return Grown(bones_, i);
  });
}

void TBonePose::GrowTo(int bones) {
  if (bones <= BoneCount()) return;
  Trail("TBonePose::GetBone", [&] {
    stamp_.Changed();
    Grown(bones_, bones - 1);
  });
}

TBonePoseInfo::~TBonePoseInfo() noexcept(!kDestructorsRaise) {
  Trail("TBonePoseInfo::~TBonePoseInfo", [] {});
}

void TBonePoseInfo::AddBone(const std::string& name) {
  Trail("TBonePoseInfo::AddBone", [&] { boneNames.push_back(name); });
}

void TBonePoseInfo::AddPose(const TBonePose& pose) {
  Trail("TBonePoseInfo::AddPose", [&] { poses.push_back(pose); });
}

void TBonePoseInfo::Clear() {
  Trail("TBonePoseInfo::Clear", [&] {
    boneNames.clear();
    boneIds.clear();
    poses.clear();
    blendedBones.clear();
  });
}

std::string TBonePoseInfo::GetBoneName(int i) const {
  return Trail("TBonePoseInfo::GetBoneName", [&] {
    const auto index = static_cast<std::size_t>(i);
    return i >= 0 && index < boneNames.size() ? boneNames[index] : std::string();
  });
}

int TBonePoseInfo::GetBoneIndex(int i) {
  return Trail("TBonePoseInfo::GetBoneIndex", [&] {
    if (i < 0 || static_cast<std::size_t>(i) >= boneNames.size()) {
      return -1;
    }
    return Grown(boneIds, i);
  });
}

int TBonePoseInfo::FindBoneIndex(int id) const {
  return Trail("TBonePoseInfo::FindBoneIndex", [&] {
    const auto found = std::find(boneIds.begin(), boneIds.end(), id);
    return found == boneIds.end() ? -1 : static_cast<int>(found - boneIds.begin());
  });
}

TIndexedBone* TBonePoseInfo::FindBone(int id) {
  return Trail("TBonePoseInfo::FindBone", [&]() -> TIndexedBone* {
    const int position = FindBoneIndex(id);
    return position < 0 ? nullptr : &Grown(blendedBones, position);
  });
}

TBonePose& TBonePoseInfo::GetPose(int i) {
  return Trail("TBonePoseInfo::GetPose", [&]() -> TBonePose& { return Grown(poses, i); });
}

void TBonePoseInfo::AssignBoneIds(std::map<std::string, int> idByName) {
  boneIds.clear();
  for (const std::string& name : boneNames) {
    boneIds.push_back(idByName[name]);
  }
}

}  // namespace lipvane
