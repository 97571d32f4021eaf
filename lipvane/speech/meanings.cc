#include "lipvane/speech/meanings.h"

#include <cstddef>

#include "lipvane/speech/label_tables.h"

namespace lipvane::speech {
namespace {

constexpr std::string_view kSilence = "Sil";

}  // namespace

Meanings::Meanings(const PhonemeMapping& mapping, ShapeSet shapes)
    : shapeSet_(shapes), rest_(mapping.speechTargets.size()) {
  for (std::size_t i = 0; i < mapping.phonemes.size(); ++i) {
    // Of two rows of one name the first counts, as elsewhere.
    const auto [entry, isNew] = phonemes_.try_emplace(mapping.phonemes[i]);
    if (!isNew) continue;
    if (i < mapping.weights.size()) entry->second = mapping.weights[i];
    entry->second.resize(rest_.size());
  }
}

void Meanings::ReplaceShapes(const std::vector<ShapeRow>& rows) {
  areShapesReplaced_ = true;
  shapes_.clear();
  for (const ShapeRow& row : rows)
    shapes_[row.name] = row.weights;
}

const Weights& Meanings::Silence() const {
  const auto found = phonemes_.find(std::string(kSilence));
  return found == phonemes_.end() ? rest_ : found->second;
}

Meaning Meanings::OfPhoneme(std::string_view name) const {
  if (name == kSilence) return {&Silence(), name};
  const auto found = phonemes_.find(std::string(name));
  return {found == phonemes_.end() ? nullptr : &found->second, name};
}

Meaning Meanings::OfShape(const std::string& label) const {
  if (areShapesReplaced_) {
    const auto found = shapes_.find(label);
    return {found == shapes_.end() ? nullptr : &found->second, {}};
  }
  const std::string_view phoneme = ShapePhoneme(shapeSet_, label);
  return phoneme.empty() ? Meaning() : OfPhoneme(phoneme);
}

Meaning Meanings::Of(const std::string& label) const {
  const Meaning shape = OfShape(label);
  if (shapeSet_ != ShapeSet::kNone) {
    // One that the user's own rows lack is unknown, not the phoneme of the same letter.
    const bool isOfSet = !ShapePhoneme(shapeSet_, label).empty();
    if (isOfSet || shape.weights != nullptr) return shape;
  }
  const auto found = phonemes_.find(label);
  // An empty name in a table is an accident, an empty label is silence.
  if (found != phonemes_.end() && !label.empty()) return {&found->second, found->first};
  if (const auto phoneme = ArpabetPhoneme(label); !phoneme.empty()) return OfPhoneme(phoneme);
  if (const auto phoneme = IpaPhoneme(label); !phoneme.empty()) return OfPhoneme(phoneme);
  return shape;
}

}  // namespace lipvane::speech
