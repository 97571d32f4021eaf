#include <algorithm>

#include "lipvane/speech/label_tables.h"

namespace lipvane::speech {
namespace {

/// Nine shapes: six that every drawing has, and G, H and X.
constexpr LabelMeaning kRhubarb[] = {
    {"A", "M"},    // lips closed: P, B, M
    {"B", "S"},    // teeth together, lips a little apart, for most consonants and EE: what S shows
    {"C", "Eh"},   // open: EH, AE
    {"D", "Aa"},   // wide open: AA
    {"E", "Er"},   // half open, a little rounded: ER, and AO, whose own shape opens as wide as D
    {"F", "W"},    // puckered: UW, OW, W
    {"G", "F"},    // upper teeth on the lower lip: F, V
    {"H", "L"},    // the tongue behind the upper teeth: long L
    {"X", "Sil"},  // at rest
};

/// Ten shapes of hand-drawn animation.
constexpr LabelMeaning kPrestonBlair[] = {
    {"AI", "Aa"},     // open; "I" is the diphthong of "eye", which opens as wide
    {"E", "Eh"},      // half open and wide; not Iy, whose jaw is nearly closed
    {"O", "Ow"},      // open and round
    {"U", "Uw"},      // round
    {"L", "L"},       // the tongue behind the upper teeth
    {"MBP", "M"},     // lips closed
    {"FV", "F"},      // upper teeth on the lower lip
    {"WQ", "W"},      // small, tight and round
    {"etc", "S"},     // C, D, G, K, N, R, S, Th, Y, Z: teeth nearly together, lips apart
    {"rest", "Sil"},  // at rest
};

}  // namespace

std::string_view ShapePhoneme(ShapeSet set, std::string_view label) {
  switch (set) {
    case ShapeSet::kRhubarb:
      return PhonemeIn(kRhubarb, label);
    case ShapeSet::kPrestonBlair:
      return PhonemeIn(kPrestonBlair, label);
    case ShapeSet::kNone:
      break;
  }
  return {};
}

bool AreShapes(ShapeSet set, const std::vector<TimedLabel>& labels) {
  return std::all_of(labels.begin(), labels.end(), [set](const TimedLabel& label) {
    return !ShapePhoneme(set, label.text).empty();
  });
}

}  // namespace lipvane::speech
