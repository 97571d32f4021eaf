#include "lipvane/formats/lbp_face.h"

#include <cstddef>
#include <map>

#include "lipvane/formats/lbp.h"
#include "lipvane/formats/lbp_hierarchy.h"
#include "lipvane/text/file.h"

namespace lipvane {
namespace {

bool IsSame(const TIndexedBone& a, const TIndexedBone& b) {
  return a.translation == b.translation && a.rotation == b.rotation;
}

TExpressionInfo MakeExpression(const char* name, TBonePoseInfo& rig, int poseNumber) {
  TExpressionInfo expression;
  expression.name = name;
  TBonePose pose;
  for (int i = 0; i < static_cast<int>(rig.boneNames.size()); ++i) {
    TIndexedBone bone = rig.GetPose(poseNumber).GetBone(i);
    if (IsSame(bone, rig.GetPose(0).GetBone(i))) continue;
    bone.boneIndex = pose.BoneCount();
    pose.AddBone(bone);
    expression.AddBone(rig.GetBoneName(i));
    expression.boneIds.push_back(rig.GetBoneIndex(i));
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

  const auto poseCount = static_cast<int>(rig.poses.size());
  int pose = 1 + read.SpeechTargetCount();
  for (const char* name : kExpressionNames) {
    if (pose >= poseCount) break;
    controller.AddExpression(MakeExpression(name, rig, pose));
    ++pose;
  }
  controller.SetBonePoseInfo(rig);
  mapping.speechTargets.insert(mapping.speechTargets.end(), read.speechTargets.begin(),
                               read.speechTargets.end());
  for (std::size_t i = 0; i < read.phonemes.size(); ++i) {
    mapping.AddPhoneme(read.phonemes[i], read.weights[i]);
  }
  return true;
}

bool LoadFace(const std::string& lbpFileName, TController& controller, PhonemeMapping& mapping,
              ReadProblem& problem) {
  std::string content;
  problem.line = 0;
  if (!text::ReadFile(lbpFileName, content, problem.reason)) return false;
  return LoadFaceText(content, controller, mapping, problem);
}

bool LoadFace(const std::string& lbpFileName, TController& controller, PhonemeMapping& mapping) {
  ReadProblem problem;
  return LoadFace(lbpFileName, controller, mapping, problem);
}

}  // namespace lipvane
