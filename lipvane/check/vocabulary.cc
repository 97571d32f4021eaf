#include "lipvane/check/vocabulary.h"

#include "lipvane/engine/bone_pose.h"
#include "lipvane/formats/lbp.h"
#include "lipvane/formats/phonemes.h"

namespace lipvane::check {

Vocabulary NewRigVocabulary() {
  return {{kSpeechTargetNames.begin(), kSpeechTargetNames.end()},
          {kExpressionNames.begin(), kExpressionNames.end()}};
}

std::optional<Vocabulary> VocabularyOf(std::string_view lbpText) {
  TBonePoseInfo rig;
  PhonemeMapping mapping;
  ReadProblem problem;
  if (!ReadLbpText(lbpText, rig, mapping, problem)) return std::nullopt;
  Vocabulary vocabulary{mapping.speechTargets, {}};
  int pose = FirstExpressionPose(mapping);
  for (const char* name : kExpressionNames) {
    if (pose++ < static_cast<int>(rig.poses.size())) vocabulary.expressions.emplace_back(name);
  }
  return vocabulary;
}

}  // namespace lipvane::check
