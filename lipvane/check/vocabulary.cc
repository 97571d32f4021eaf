#include "lipvane/check/vocabulary.h"

#include <cstddef>

#include "lipvane/check/words.h"
#include "lipvane/engine/bone_pose.h"
#include "lipvane/formats/lbp.h"
#include "lipvane/text/numbers.h"

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

PhonemeMapping NewRigPhonemes() {
  PhonemeMapping mapping;
  for (const char* name : kSpeechTargetNames)
    mapping.AddSpeechTarget(name);
  std::vector<std::string_view> words;
  std::vector<std::string_view> rows;
  SplitWords(DefaultPhonemeTable, rows, "\n");
  for (const std::string_view row : rows) {
    SplitWords(row, words);
    std::vector<float> weights;
    for (std::size_t i = 1; i < words.size(); ++i)
      weights.push_back(static_cast<float>(text::RealPrefix(words[i])));
    mapping.AddPhoneme(std::string(words[0]), weights);
  }
  return mapping;
}

std::optional<PhonemeMapping> PhonemesOf(std::string_view lbpText) {
  TBonePoseInfo unused;
  PhonemeMapping mapping;
  ReadProblem problem;
  if (!ReadLbpText(lbpText, unused, mapping, problem)) return std::nullopt;
  return mapping;
}

}  // namespace lipvane::check
