#include "cli/playback.h"

#include <cstddef>

#include "cli/messages.h"
#include "cli/pose_needs.h"
#include "lipvane/formats/lbp_face.h"
#include "lipvane/formats/ltf.h"
#include "lipvane/formats/read_problem.h"

namespace lipvane::cli {

bool Playback::Load(const InputFile& lbp, const InputFile& ltf, bool force) {
  ReadProblem problem;
  if (!LoadFaceText(lbp.text, controller_, mapping_, problem)) {
    PrintProblem(lbp, problem);
    return false;
  }
  if (!ReadLtfText(ltf.text, animation_, problem)) {
    PrintProblem(ltf, problem);
    return false;
  }
  if (!HasPosesFor(lbp, Rig(), ltf.name, animation_, force)) return false;
  if (!Rig().poses.empty()) WarnOfLostExpressions(lbp, ExpressionNames(), ltf.name, animation_);
  controller_.InitializeBones(pose_);
  for (int i = 0; i < pose_.BoneCount(); ++i) {
    // Expressions move bones of the rig alone, so the rig has every identifier.
    boneNames_.push_back(Rig().GetBoneName(Rig().FindBoneIndex(pose_.GetBone(i).boneIndex)));
  }
  return true;
}

std::vector<std::string> Playback::ExpressionNames() {
  std::vector<std::string> names;
  names.reserve(static_cast<std::size_t>(controller_.ExpressionCount()));
  for (int i = 0; i < controller_.ExpressionCount(); ++i)
    names.push_back(controller_.GetExpression(i)->name);
  return names;
}

void Playback::Play(double time) {
  time_ = time;
  isInside_ = !controller_.UpdateFacialAnim(animation_, time, weights_, pose_);
}

std::vector<double> Playback::ExpressionWeights() {
  std::vector<double> weights;
  weights.reserve(static_cast<std::size_t>(controller_.ExpressionCount()));
  for (int i = 0; i < controller_.ExpressionCount(); ++i)
    weights.push_back(controller_.GetExpression(i)->weight);
  return weights;
}

}  // namespace lipvane::cli
