#include "lipvane/speech/label_kinds.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>
#include <vector>

#include "lipvane/speech/words.h"
#include "lipvane/text/lists.h"
#include "lipvane/text/numbers.h"
#include "lipvane/text/printable.h"

namespace lipvane::speech {
namespace {

/// Sounds have fewer letters, in every alphabet that uses these.
constexpr std::ptrdiff_t kLettersOfAWord = 3;

constexpr std::string_view kNamesOfWords[] = {"word",        "words",     "ort",
                                              "ortho",       "utterance", "utterances",
                                              "orthography", "sentence",  "sentences"};

char Small(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool IsLetter(char c) {
  return Small(c) >= 'a' && Small(c) <= 'z';
}

bool IsUnknownWord(std::string_view label) {
  constexpr std::string_view kLabel = "spn";
  return label.size() == kLabel.size() &&
         std::equal(label.begin(), label.end(), kLabel.begin(),
                    [](char c, char small) { return Small(c) == small; });
}

/// "words", "Anna - words", "ORT-MAU", but not "phones of words".
bool NamesWords(std::string_view tier) {
  std::string name;
  for (const char c : tier)
    name += IsLetter(c) ? Small(c) : ' ';
  if (name.find("phon") != std::string::npos) return false;
  std::string_view rest = name;
  while (!rest.empty()) {
    const std::string_view word = TakeWord(rest);
    if (std::find(std::begin(kNamesOfWords), std::end(kNamesOfWords), word) !=
        std::end(kNamesOfWords)) {
      return true;
    }
  }
  return false;
}

bool LooksLikeWords(std::string_view label) {
  return label.find(' ') != std::string_view::npos ||
         std::count_if(label.begin(), label.end(), IsLetter) >= kLettersOfAWord;
}

/// More than half of what is no silence.
bool HoldsWords(const Timing& timing, const Meanings& meanings) {
  std::size_t sounding = 0;
  std::size_t words = 0;
  for (const TimedLabel& label : timing.labels) {
    const Meaning meaning = meanings.Of(label.text);
    if (IsSilence(meaning)) continue;
    ++sounding;
    // A sound that just the rig's table lacks is one all the same.
    const bool isUnexplained = meaning.weights == nullptr && meaning.phoneme.empty();
    if (isUnexplained && LooksLikeWords(label.text)) ++words;
  }
  return 2 * words > sounding;
}

}  // namespace

bool IsSilence(const Meaning& meaning) {
  return meaning.phoneme == "Sil" || meaning.phoneme == "ShortSil";
}

UnknownWords FindUnknownWords(const Timing& timing, const Meanings& meanings) {
  UnknownWords words;
  std::vector<std::string> times;
  for (const TimedLabel& label : timing.labels) {
    // A rig may have a sound of that name.
    if (!IsUnknownWord(label.text) || !IsSilence(meanings.Of(label.text))) continue;
    if (times.empty()) words.line = label.line;
    times.push_back(text::RoundedReal(label.start) + " s");
  }
  if (times.empty()) return words;
  words.text = times.size() == 1
                   ? "a word that the aligner did not know (spn)"
                   : std::to_string(times.size()) + " words that the aligner did not know (spn)";
  words.text += ": the mouth stays shut at " + text::Listed(times);
  return words;
}

WordsTier FindWordsTier(const Timing& timing, const Meanings& meanings) {
  WordsTier words;
  words.isNamed = timing.format == kTextGridFormat && NamesWords(timing.tier);
  if (!words.isNamed && !HoldsWords(timing, meanings)) return words;
  words.text = timing.tier.empty()
                   ? "its labels are words, not sounds"
                   : "the tier " + text::QuotedLine(timing.tier) + " holds words, not sounds";
  words.text += timing.phoneTier.empty() || timing.phoneTier == timing.tier
                    ? ": an aligner makes sounds of them"
                    : "; the tier " + text::QuotedLine(timing.phoneTier) + " holds the sounds";
  return words;
}

}  // namespace lipvane::speech
