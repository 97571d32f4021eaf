#include "lipvane/speech/praat_symbols.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace lipvane::speech {
namespace {

struct Notation {
  std::string_view characters;  // behind the backslash
  std::string_view symbol;
};

/// Those of the symbols that speech in English is written with, and of the marks on them.
constexpr Notation kNotations[] = {
    // Vowels.
    {"i-", "ɨ"},
    {"u-", "ʉ"},
    {"mt", "ɯ"},
    {"ic", "ɪ"},
    {"yc", "ʏ"},
    {"hs", "ʊ"},
    {"o/", "ø"},
    {"e-", "ɘ"},
    {"o-", "ɵ"},
    {"rh", "ɤ"},
    {"sw", "ə"},
    {"sr", "ɚ"},
    {"ep", "ɛ"},
    {"oe", "œ"},
    {"er", "ɜ"},
    {"kb", "ɞ"},
    {"vt", "ʌ"},
    {"ct", "ɔ"},
    {"ae", "æ"},
    {"at", "ɐ"},
    {"as", "ɑ"},
    {"ab", "ɒ"},
    // Consonants.
    {"t.", "ʈ"},
    {"d.", "ɖ"},
    {"j-", "ɟ"},
    {"gs", "ɡ"},
    {"?g", "ʔ"},
    {"mj", "ɱ"},
    {"n.", "ɳ"},
    {"nj", "ɲ"},
    {"ng", "ŋ"},
    {"ff", "ɸ"},
    {"bf", "β"},
    {"tf", "θ"},
    {"te", "θ"},
    {"th", "θ"},  // Praat draws a thorn, which as a label means the same sound
    {"dh", "ð"},
    {"sh", "ʃ"},
    {"s.", "ʂ"},
    {"cc", "ɕ"},
    {"zh", "ʒ"},
    {"z.", "ʐ"},
    {"zc", "ʑ"},
    {"c,", "ç"},
    {"gf", "ɣ"},
    {"cf", "χ"},
    {"ri", "ʁ"},
    {"h^", "ʰ"},
    {"hh", "ɦ"},
    {"vs", "ʋ"},
    {"rt", "ɹ"},
    {"r.", "ɻ"},
    {"fh", "ɾ"},
    {"l-", "ɬ"},
    {"l~", "ɫ"},
    {"l.", "ɭ"},
    {"yt", "ʎ"},
    {"wt", "ʍ"},
    // Length, stress, colour and ties.
    {":f", "ː"},
    {".f", "ˑ"},
    {"'1", "ˈ"},
    {"'2", "ˌ"},
    {"hr", "\u02DE"},
    {"li", "\u0361"},
    {"cn", "\u031A"},
    // Below a letter: syllabic, voiceless, lowered, raised, advanced and retracted (of the root of
    // the tongue, then of the tongue), breathy, creaky, dental, apical, laminal, no syllable, more
    // and less rounded.
    {"|v", "\u0329"},
    {"0v", "\u0325"},
    {"Tv", "\u031E"},
    {"T^", "\u031D"},
    {"T(", "\u0318"},
    {"T)", "\u0319"},
    {"+v", "\u031F"},
    {"-v", "\u0320"},
    {":v", "\u0324"},
    {"~v", "\u0330"},
    {"Nv", "\u032A"},
    {"Uv", "\u033A"},
    {"Dv", "\u033B"},
    {"nv", "\u032F"},
    {"3v", "\u0339"},
    {"cv", "\u031C"},
    // Above a letter: voiceless, tones, nasal, centralised, short.
    {"0^", "\u030A"},
    {"'^", "\u0301"},
    {"`^", "\u0300"},
    {"-^", "\u0304"},
    {"~^", "\u0303"},
    {"v^", "\u030C"},
    {"^^", "\u0302"},
    {":^", "\u0308"},
    {"N^", "\u0306"},
};

}  // namespace

std::string WithoutPraatNotation(std::string_view label) {
  constexpr std::size_t kCharacters = 2;
  std::string plain;
  for (;;) {
    const std::size_t slash = label.find('\\');
    plain += label.substr(0, slash);
    if (slash == std::string_view::npos) return plain;
    label.remove_prefix(slash + 1);
    const auto* const found =
        std::find_if(std::begin(kNotations), std::end(kNotations), [&](const Notation& notation) {
          return notation.characters == label.substr(0, kCharacters);
        });
    const bool isKnown = found != std::end(kNotations);
    plain += isKnown ? found->symbol : "\\";
    if (isKnown) label.remove_prefix(kCharacters);
  }
}

}  // namespace lipvane::speech
