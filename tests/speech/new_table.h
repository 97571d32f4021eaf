#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "lipvane/formats/phonemes.h"

namespace lipvane::speech::test {

/// The phoneme table of a new rig.
inline PhonemeMapping NewTable() {
  PhonemeMapping mapping;
  for (const char* const name : kSpeechTargetNames)
    mapping.AddSpeechTarget(name);
  std::istringstream rows(DefaultPhonemeTable);
  std::string name;
  while (rows >> name) {
    std::vector<float> row(kSpeechTargetNames.size());
    for (float& weight : row)
      rows >> weight;
    mapping.AddPhoneme(name, row);
  }
  return mapping;
}

}  // namespace lipvane::speech::test
