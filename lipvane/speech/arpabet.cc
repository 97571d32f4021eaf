#include <string>

#include "lipvane/speech/label_tables.h"

namespace lipvane::speech {
namespace {

/// Vowels may bear a digit for stress: 1 the main one, 2 another, 0 none.
constexpr LabelMeaning kVowels[] = {
    {"AA", "Aa"},
    {"AE", "Ae"},
    {"AH", "Ah"},
    {"AO", "Ao"},
    {"AW", "Aw"},
    {"AX", "Ax"},
    {"AY", "Ay"},
    {"EH", "Eh"},
    {"ER", "Er"},
    {"EY", "Ey"},
    {"IH", "Ih"},
    {"IY", "Iy"},
    {"OW", "Ow"},
    {"OY", "Oy"},
    {"UH", "Uh"},
    {"UW", "Uw"},
    // Reduced vowels look as their full ones do.
    {"AX-H", "Ax"},
    {"AXR", "Er"},
    {"IX", "Ih"},
    {"UX", "Uw"},
};

constexpr LabelMeaning kOthers[] = {
    {"B", "B"},
    {"CH", "Ch"},
    {"D", "D"},
    {"DH", "Dh"},
    {"F", "F"},
    {"G", "G"},
    {"HH", "Hh"},
    {"JH", "Jh"},
    {"K", "K"},
    {"L", "L"},
    {"M", "M"},
    {"N", "N"},
    {"NG", "Ng"},
    {"P", "P"},
    {"R", "R"},
    {"S", "S"},
    {"SH", "Sh"},
    {"T", "T"},
    {"TH", "Th"},
    {"V", "V"},
    {"W", "W"},
    {"Y", "Y"},
    {"Z", "Z"},
    {"ZH", "Zh"},
    {"DX", "Flap"},
    // The flap of "winner" is an N to the eye.
    {"NX", "N"},
    // Consonants that are syllables by themselves.
    {"EL", "L"},
    {"EM", "M"},
    {"EN", "N"},
    {"ENG", "Ng"},
    // Voiced between vowels; "which" with a breath.
    {"HV", "Hh"},
    {"WH", "W"},
    // A stop's closure is the stop, its mouth is shut already.
    {"BCL", "B"},
    {"DCL", "D"},
    {"GCL", "G"},
    {"KCL", "K"},
    {"PCL", "P"},
    {"TCL", "T"},
    // The throat closes, the mouth hardly moves.
    {"Q", "ShortSil"},
    // Silence, breath and noise.
    {"", "Sil"},
    {"SIL", "Sil"},
    {"SPN", "Sil"},
    {"PAU", "Sil"},
    {"EPI", "Sil"},
    {"H#", "Sil"},
    {"<EPS>", "Sil"},
    {"<P:>", "Sil"},
    {"SP", "ShortSil"},
};

std::string InCapitals(std::string_view label) {
  std::string capitals(label);
  for (char& c : capitals)
    c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  return capitals;
}

}  // namespace

std::string_view ArpabetPhoneme(std::string_view label) {
  const std::string capitals = InCapitals(label);
  std::string_view name = capitals;
  if (const std::string_view phoneme = PhonemeIn(kOthers, name); !phoneme.empty()) return phoneme;
  if (const std::string_view phoneme = PhonemeIn(kVowels, name); !phoneme.empty()) return phoneme;
  if (name.empty() || name.back() < '0' || name.back() > '2') return {};
  // Dictionaries without AX write the schwa so.
  if (name == "AH0") return "Ax";
  name.remove_suffix(1);
  return PhonemeIn(kVowels, name);
}

}  // namespace lipvane::speech
