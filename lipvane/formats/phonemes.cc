#include "lipvane/formats/phonemes.h"

#include <cstddef>

namespace lipvane {
namespace {

bool Holds(const std::vector<std::string>& names, int i) {
  return i >= 0 && static_cast<std::size_t>(i) < names.size();
}

std::string NameAt(const std::vector<std::string>& names, int i) {
  return Holds(names, i) ? names[static_cast<std::size_t>(i)] : std::string();
}

}  // namespace

void PhonemeMapping::AddSpeechTarget(const std::string& name) {
  speechTargets.push_back(name);
}

void PhonemeMapping::AddPhoneme(const std::string& name, const std::vector<float>& row) {
  phonemes.push_back(name);
  weights.push_back(row);
}

std::string PhonemeMapping::GetSpeechTargetName(int i) const {
  return NameAt(speechTargets, i);
}

std::string PhonemeMapping::GetPhonemeName(int i) const {
  return NameAt(phonemes, i);
}

bool PhonemeMapping::GetWeight(int target, int phoneme, float& weight) {
  if (!Holds(speechTargets, target) || !Holds(phonemes, phoneme)) return false;
  const auto p = static_cast<std::size_t>(phoneme);
  const auto t = static_cast<std::size_t>(target);
  // Deliberate: reading a weight that was never given makes it exist.
  if (weights.size() <= p) weights.resize(p + 1);
  if (weights[p].size() <= t) weights[p].resize(t + 1);
  weight = weights[p][t];
  return true;
}

}  // namespace lipvane
