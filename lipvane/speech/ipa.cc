#include <string>

#include "lipvane/speech/label_tables.h"
#include "lipvane/text/utf8.h"

namespace lipvane::speech {
namespace {

/// Symbols without length, stress, diacritics and tie bars.
constexpr LabelMeaning kSymbols[] = {
    // Vowels.
    {"i", "Iy"},
    {"ɪ", "Ih"},
    {"ɨ", "Ih"},
    {"ᵻ", "Ih"},
    {"ɛ", "Eh"},
    {"e", "Eh"},  // alone: "dress" in British transcriptions
    {"æ", "Ae"},
    {"a", "Ae"},  // alone: "trap" in British transcriptions
    {"ɑ", "Aa"},
    {"ɒ", "Aa"},  // "lot": as open as Aa, and rounded by little
    {"ɔ", "Ao"},
    {"o", "Ow"},
    {"ʊ", "Uh"},
    {"ɵ", "Uh"},
    {"u", "Uw"},
    {"ʉ", "Uw"},
    {"ɯ", "Uw"},
    {"ʌ", "Ah"},
    {"ɐ", "Ah"},
    {"ə", "Ax"},
    {"ɘ", "Ax"},
    {"ɜ", "Er"},
    {"ɝ", "Er"},
    {"ɚ", "Er"},
    {"ɞ", "Er"},
    {"ɜɹ", "Er"},
    {"əɹ", "Er"},
    // Diphthongs, their second part as a vowel or as a glide.
    {"eɪ", "Ey"},
    {"ej", "Ey"},
    {"ei", "Ey"},
    {"ɛɪ", "Ey"},
    {"aɪ", "Ay"},
    {"aj", "Ay"},
    {"ai", "Ay"},
    {"ɑɪ", "Ay"},
    {"ɑj", "Ay"},
    {"ʌɪ", "Ay"},
    {"ɔɪ", "Oy"},
    {"ɔj", "Oy"},
    {"ɔi", "Oy"},
    {"oɪ", "Oy"},
    {"oj", "Oy"},
    {"aʊ", "Aw"},
    {"aw", "Aw"},
    {"au", "Aw"},
    {"ɑʊ", "Aw"},
    {"æʊ", "Aw"},
    {"oʊ", "Ow"},
    {"ow", "Ow"},
    {"ou", "Ow"},
    {"əʊ", "Ow"},
    {"əw", "Ow"},
    {"ɔʊ", "Ow"},
    {"uw", "Uw"},
    {"ʉw", "Uw"},
    {"ij", "Iy"},
    // The same in Australia.
    {"æɪ", "Ey"},
    {"ɑe", "Ay"},
    {"æɔ", "Aw"},
    {"əʉ", "Ow"},
    // Those of "near", "square" and "cure" begin with what is seen.
    {"ɪə", "Ih"},
    {"iə", "Iy"},
    {"eə", "Eh"},
    {"ɛə", "Eh"},
    {"ʊə", "Uh"},
    {"ɔə", "Ao"},
    {"aɪə", "Ay"},
    {"aʊə", "Aw"},
    // Some aligners keep a vowel and the R behind it together.
    {"ɪɹ", "Ih"},
    {"ɛɹ", "Eh"},
    {"ɑɹ", "Aa"},
    {"ɔɹ", "Ao"},
    {"oɹ", "Ao"},
    {"ʊɹ", "Uh"},
    {"aɪɚ", "Ay"},
    {"əl", "L"},
    // Consonants.
    {"p", "P"},
    {"b", "B"},
    {"t", "T"},
    {"ʈ", "T"},
    {"d", "D"},
    {"ɖ", "D"},
    {"k", "K"},
    {"kp", "P"},  // both at once, in Nigeria: what is seen are the lips
    {"gb", "B"},
    {"ɡb", "B"},
    {"c", "K"},  // a K before a front vowel
    {"g", "G"},
    {"ɡ", "G"},
    {"ɟ", "G"},  // a G before a front vowel
    {"m", "M"},
    {"ɱ", "F"},  // an M before F or V: the teeth are on the lip
    {"n", "N"},
    {"ɲ", "N"},
    {"ŋ", "Ng"},
    {"f", "F"},
    {"v", "V"},
    {"ʋ", "V"},
    {"θ", "Th"},
    {"ð", "Dh"},
    {"s", "S"},
    {"z", "Z"},
    {"ʃ", "Sh"},
    {"ɕ", "Sh"},
    {"ʂ", "Sh"},
    {"ʒ", "Zh"},
    {"ʑ", "Zh"},
    {"ʐ", "Zh"},
    {"h", "Hh"},
    {"ɦ", "Hh"},
    {"ç", "Hh"},  // "hue"
    {"x", "K"},   // "loch": the back of the tongue is up as for K
    {"l", "L"},
    {"ɫ", "L"},
    {"ɬ", "L"},
    {"ʎ", "L"},
    {"ɹ", "R"},
    {"ɻ", "R"},
    {"r", "R"},
    {"ɾ", "Flap"},
    {"w", "W"},
    {"ʍ", "W"},
    {"j", "Y"},
    // Affricates.
    {"tʃ", "Ch"},
    {"ʧ", "Ch"},
    {"tɕ", "Ch"},
    {"dʒ", "Jh"},
    {"ʤ", "Jh"},
    {"dʑ", "Jh"},
    {"ts", "S"},
    {"dz", "Z"},
    {"tɹ", "Ch"},  // "tree", "dream": the lips flare as for Ch and Jh
    {"dɹ", "Jh"},
    // The throat closes, the mouth hardly moves.
    {"ʔ", "ShortSil"},
};

constexpr char32_t kCedilla = 0x327;
constexpr char32_t kRhoticHook = 0x2DE;

/// Whether a character only says how long, how strong or with what colour a sound is spoken: stress
/// and length marks, raised letters (aspiration, lips rounded), combining marks (syllabic, dental,
/// nasal, tie bars), the dot between syllables.
bool IsModifier(char32_t c) {
  return (c >= 0x2B0 && c <= 0x36F) || (c >= 0x1D2C && c <= 0x1D6A) || c == 0x1D78 ||
         (c >= 0x1D9B && c <= 0x1DFF) || c == 0x207F || c == '.' || c == '\'' || c == ':';
}

/// The label's letters alone.
std::string Plain(std::string_view label) {
  std::string plain;
  while (!label.empty()) {
    const char32_t c = text::TakeCharacter(label);
    if (c == kCedilla && !plain.empty() && plain.back() == 'c') {
      // "ç" in two characters.
      plain.pop_back();
      plain += "ç";
    } else if (c == kRhoticHook && (plain == "ə" || plain == "ɜ")) {
      plain = "ɚ";
    } else if (!IsModifier(c)) {
      text::AppendUtf8(plain, c);
    }
  }
  return plain;
}

}  // namespace

std::string_view IpaPhoneme(std::string_view label) {
  return PhonemeIn(kSymbols, Plain(label));
}

}  // namespace lipvane::speech
