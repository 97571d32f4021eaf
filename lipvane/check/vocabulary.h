#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "lipvane/formats/phonemes.h"

namespace lipvane::check {

/// What the tracks of an animation may move.
struct Vocabulary {
  std::vector<std::string> speechTargets;  ///< in the order of their poses
  std::vector<std::string> expressions;
};

/// Of a rig with the default speech targets.
Vocabulary NewRigVocabulary();
/// Of a bone pose file: its speech targets, and the expressions that it has poses for. Nothing when
/// the file is refused.
std::optional<Vocabulary> VocabularyOf(std::string_view lbpText);

/// What sounds stand for: the phoneme table of a new rig.
PhonemeMapping NewRigPhonemes();
/// The same of a bone pose file. Nothing when the file is refused.
std::optional<PhonemeMapping> PhonemesOf(std::string_view lbpText);

}  // namespace lipvane::check
