#include "lipvane/formats/lbp_face.h"

#include <cstddef>
#include <map>
#include <utility>

#include "lipvane/formats/file_content.h"
#include "lipvane/formats/lbp.h"
#include "lipvane/formats/lbp_hierarchy.h"

namespace lipvane {
namespace {

bool IsSame(const TIndexedBone& a, const TIndexedBone& b) {
  return a.translation == b.translation && a.rotation == b.rotation;
}

TExpressionInfo MakeExpression(const char* name, TBonePoseInfo& rig, std::size_t poseNumber) {
  TExpressionInfo expression;
  expression.name = name;
  TBonePose pose;
  for (std::size_t i = 0; i < rig.boneNames.size(); ++i) {
    TIndexedBone bone = rig.poses[poseNumber].Bones()[i];
    if (IsSame(bone, rig.poses[0].Bones()[i])) continue;
    bone.boneIndex = pose.BoneCount();
    pose.AddBone(bone);
    expression.AddBone(rig.boneNames[i]);
    expression.boneIds.push_back(rig.boneIds[i]);
  }
  expression.AddPose(pose);
  return expression;
}

}  // namespace

bool LoadFaceText(std::string_view lbpText, TController& controller, PhonemeMapping& mapping,
                  ReadProblem& problem) {
  TBonePoseInfo rig;
  PhonemeMapping read;
  if (!ReadLbpText(lbpText, rig, read, problem)) return false;
  std::map<int, std::string> nameByNumber;
  std::map<std::string, int> numberByName;
  std::map<std::string, std::string> parentByName;
  // What the first reading took, the second takes as well.
  ReadLbpHierarchyText(lbpText, nameByNumber, numberByName, parentByName);
  rig.AssignBoneIds(numberByName);

  while (TExpressionInfo* earlier = controller.GetExpression(0))
    controller.DeleteExpression(earlier->name);
  auto pose = static_cast<std::size_t>(FirstExpressionPose(read));
  for (const char* name : kExpressionNames) {
    if (pose >= rig.poses.size()) break;
    controller.AddExpression(MakeExpression(name, rig, pose));
    ++pose;
  }
  controller.SetBonePoseInfo(rig);
  mapping = std::move(read);
  return true;
}

bool LoadFace(const std::string& lbpFileName, TController& controller, PhonemeMapping& mapping,
              ReadProblem& problem) {
  return ReadContent(lbpFileName, problem, [&](const std::string& content) {
    return LoadFaceText(content, controller, mapping, problem);
  });
}

bool LoadFace(const std::string& lbpFileName, TController& controller, PhonemeMapping& mapping) {
  ReadProblem problem;
  return LoadFace(lbpFileName, controller, mapping, problem);
}

}  // namespace lipvane
