// The import and the selection of facialAnim.

#include "lipvane/formats/lbp.h"
#include "lipvane/formats/lbp_hierarchy.h"
#include "lipvane/formats/phonemes.h"
#include "lipvane/plugin/facial_anim_command.h"
#include "lipvane/scene/pose_keying.h"

namespace lipvane::plugin {
namespace {

constexpr std::size_t kFramesPerPose = 10;

}  // namespace

host::Status FacialAnimCommand::Load() {
  BoneNameByNumber.clear();
  BoneNumberByName.clear();
  BoneParentByName.clear();
  const std::string fileName = lbpFileName_;
  PhonemeMapping unusedMapping;
  TBonePoseInfo& poseInfo = *controller_.BonePoseInfo();
  if (!ReadLbpFile(fileName, poseInfo, unusedMapping)) {
    host_.DisplayError("cannot parse selected LBP file: " + fileName);
    return host::StatusCode::kFailure;
  }
  ReadLbpHierarchy(fileName, BoneNameByNumber, BoneNumberByName, BoneParentByName);
  poseInfo.AssignBoneIds(BoneNumberByName);
  controller_.InitializeBones(outputPose_);
  return {};
}

std::vector<std::string> FacialAnimCommand::BoneNames() {
  const TBonePoseInfo& poseInfo = *controller_.BonePoseInfo();
  std::vector<std::string> names;
  for (std::size_t i = 0; i < poseInfo.boneNames.size(); ++i) {
    names.push_back(poseInfo.GetBoneName(static_cast<int>(i)));
  }
  return names;
}

host::Status FacialAnimCommand::MatchBones() {
  const std::vector<std::string> boneNames = BoneNames();
  boneCurves_.clear();
  boneCurves_.reserve(boneNames.size());
  for (std::size_t i = 0; i < boneNames.size(); ++i) {
    boneCurves_.emplace_back(host_);
  }
  const host::Status created =
      scene::CreateBoneCurves(host_, static_cast<int>(boneNames.size()), boneNames, boneCurves_);
  if (!created.ok()) {
    host_.DisplayWarning(
        "Bone(s) in the LBP file were not found.  Make sure your LBP file is correct.\n");
  }
  return {};
}

host::Status FacialAnimCommand::ImportPoses() {
  host::Status status = Load();
  if (!status.ok()) return status;
  status = MatchBones();
  if (!status.ok()) return status;
  TBonePoseInfo& poseInfo = *controller_.BonePoseInfo();
  for (std::size_t pose = 0; pose < poseInfo.poses.size(); ++pose) {
    const double frame = static_cast<double>(kFramesPerPose * pose);
    host_.SetCurrentTime(frame);
    for (std::size_t bone = 0; bone < poseInfo.boneNames.size(); ++bone) {
      TIndexedBone& bonePose =
          poseInfo.GetPose(static_cast<int>(pose)).GetBone(static_cast<int>(bone));
      // A bone without a joint gets no keys; the others go on.
      scene::KeyBone(host_, boneCurves_[bone], bonePose, frame);
    }
  }
  return {};
}

host::Status FacialAnimCommand::SelectBones() {
  host::Status status = Load();
  if (!status.ok()) return status;
  status = MatchBones();
  if (!status.ok()) return status;
  const std::vector<std::string> boneNames = BoneNames();
  if (boneNames.empty()) return status;
  for (std::size_t i = 0; i + 1 < boneNames.size(); ++i) {
    host_.SelectByName(boneNames[i], host::ListAdjustment::kAddToList);
  }
  unsigned before = 0;
  host_.GetSelectionLength(before);
  host_.SelectByName(boneNames.back(), host::ListAdjustment::kAddToList);
  unsigned after = 0;
  host_.GetSelectionLength(after);
  // Deliberate: the last bone alone decides between all and nothing.
  if (after != before + 1) host_.ClearSelection();
  return status;
}

}  // namespace lipvane::plugin
