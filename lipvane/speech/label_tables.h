#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "lipvane/speech/timing.h"

/// What the labels of aligners and lip-sync tools stand for: the name of a phoneme as pose files of
/// a new rig have it ("Iy", "Sil" ...), or an empty name. One table a set, each in a file of its
/// own; docs/speech.md shows them all.
namespace lipvane::speech {

struct LabelMeaning {
  std::string_view label;
  std::string_view phoneme;
};

/// What a table has for just this label.
template <std::size_t kCount>
std::string_view PhonemeIn(const LabelMeaning (&table)[kCount], std::string_view label) {
  for (const LabelMeaning& entry : table) {
    if (entry.label == label) return entry.phoneme;
  }
  return {};
}

/// ARPAbet in any case, vowels with or without a digit for stress, and what aligners write for
/// silence.
std::string_view ArpabetPhoneme(std::string_view label);

/// A symbol of the International Phonetic Alphabet, in UTF-8, as it occurs in English.
std::string_view IpaPhoneme(std::string_view label);

/// A mouth shape of a set.
std::string_view ShapePhoneme(ShapeSet set, std::string_view label);
/// Whether all labels are shapes of a set: files that do not say what wrote them are told by that.
bool AreShapes(ShapeSet set, const std::vector<TimedLabel>& labels);

}  // namespace lipvane::speech
