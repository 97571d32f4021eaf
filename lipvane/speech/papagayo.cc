#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "lipvane/speech/timing_forms.h"
#include "lipvane/speech/words.h"
#include "lipvane/text/lists.h"
#include "lipvane/text/numbers.h"
#include "lipvane/text/printable.h"

namespace lipvane::speech {
namespace {

constexpr std::string_view kTitle = "lipsync version 1";

struct Voice {
  std::string name;
  std::vector<TimedLabel> labels;
};

/// The lines stand in fixed order, each group under its count; how deep they are indented says
/// nothing more.
class Reader {
 public:
  Reader(std::string_view text, ReadProblem& problem) : lines_(text), problem_(problem) {}

  bool Read(std::vector<Voice>& voices, double& end) {
    std::string_view line;
    if (!Next("the title", line) || line != kTitle) {
      return Refuse("the title \"lipsync version 1\" is expected");
    }
    std::string_view sound;
    int frames = 0;
    int count = 0;
    if (!Next("the name of the sound", sound) || !Next("the number of frames a second", line)) {
      return false;
    }
    const auto rate = text::FiniteReal(line);
    if (!rate || *rate < 0.1 || *rate > 10000.0)
      return Refuse("this is no number of frames a second");
    framesPerSecond_ = *rate;
    if (!Count("the number of frames", frames) || !Count("the number of voices", count))
      return false;
    end = Seconds(frames);
    for (int i = 0; i < count; ++i) {
      if (!ReadVoice(voices.emplace_back())) return false;
    }
    if (lines_.NextFilled(line)) return Refuse("the file goes on after its last voice");
    return true;
  }

 private:
  bool ReadVoice(Voice& voice) {
    std::string_view line;
    int count = 0;
    if (!Next("the name of a voice", line)) return false;
    voice.name = line;
    if (!Next("the text of a voice", line) || !Count("the number of phrases", count)) return false;
    for (int i = 0; i < count; ++i) {
      if (!ReadPhrase(voice)) return false;
    }
    return true;
  }

  bool ReadPhrase(Voice& voice) {
    std::string_view line;
    int unused = 0;
    int count = 0;
    if (!Next("the text of a phrase", line) || !Count("the first frame of a phrase", unused) ||
        !Count("the last frame of a phrase", unused) || !Count("the number of words", count)) {
      return false;
    }
    for (int i = 0; i < count; ++i) {
      if (!ReadWord(voice)) return false;
    }
    return true;
  }

  /// A word and then its phonemes. One lasts until the next one, the last one to the word's end;
  /// between words the mouth rests, but where a word is laid a frame off the one before.
  bool ReadWord(Voice& voice) {
    std::string_view line;
    if (!Next("a word", line)) return false;
    const auto count = WholeNumber(TakeLastWord(line));
    const auto last = WholeNumber(TakeLastWord(line));
    const auto first = WholeNumber(TakeLastWord(line));
    if (!first || !last || !count || *count < 0) {
      return Refuse(
          "a word is followed by its first frame, its last frame and its number of phonemes");
    }
    const double end = Seconds(*last + 1.0);
    for (int i = 0; i < *count; ++i) {
      if (!Next("a phoneme", line)) return false;
      const auto frame = WholeNumber(TakeWord(line));
      if (!frame || line.empty()) return Refuse("a phoneme needs a frame and a name");
      const double start = Seconds(*frame);
      if (!voice.labels.empty()) EndAt(voice.labels.back(), start, i > 0);
      voice.labels.push_back({std::string(line), start, std::max(start, end), lines_.LineNumber()});
    }
    return true;
  }

  void EndAt(TimedLabel& label, double start, bool isSameWord) const {
    const bool isNear = std::abs(start - label.end) < Seconds(1.5) && start >= label.start;
    if (isSameWord || isNear) label.end = start;
  }

  double Seconds(double frame) const { return frame / framesPerSecond_; }

  bool Count(const char* what, int& count) {
    std::string_view line;
    if (!Next(what, line)) return false;
    const auto number = WholeNumber(line);
    if (!number || *number < 0) return Refuse(std::string(what) + " is expected");
    count = *number;
    return true;
  }

  /// Empty lines count: a text may be empty.
  bool Next(const char* what, std::string_view& line) {
    if (lines_.Next(line)) return true;
    return Refuse("the file ends where " + std::string(what) + " is expected");
  }

  bool Refuse(std::string reason) {
    return speech::Refuse(problem_, lines_.LineNumber(), std::move(reason));
  }

  Lines lines_;
  ReadProblem& problem_;
  double framesPerSecond_ = 0.0;
};

/// The one that is meant, or null with the problem set.
const Voice* Choose(const std::vector<Voice>& voices, const std::string& wanted,
                    ReadProblem& problem) {
  std::vector<std::string> names;
  std::vector<const Voice*> meant;
  for (const Voice& voice : voices) {
    names.push_back(text::QuotedLine(voice.name));
    if (wanted.empty() || voice.name == wanted) meant.push_back(&voice);
  }
  if (meant.size() == 1) return meant[0];
  const std::string list = text::Listed(names);
  if (voices.empty()) {
    Refuse(problem, 0, "it has no voices");
  } else if (meant.empty()) {
    Refuse(problem, 0,
           "there is no voice " + text::QuotedLine(wanted) + "; its voices are " + list);
  } else if (wanted.empty()) {
    Refuse(problem, 0, "its voices are " + list + ": name the one to speak with --tier");
  } else {
    Refuse(problem, 0,
           "there are " + std::to_string(meant.size()) + " voices " + text::QuotedLine(wanted) +
               ": give each a name of its own");
  }
  return nullptr;
}

bool Recognises(std::string_view text) {
  std::string_view line;
  return Lines(text).NextFilled(line) && line.substr(0, 15) == kTitle.substr(0, 15);
}

bool Read(std::string_view text, const TimingOptions& options, Timing& timing,
          ReadProblem& problem) {
  std::vector<Voice> voices;
  double end = 0.0;
  if (!Reader(text, problem).Read(voices, end)) return false;
  const Voice* const voice = Choose(voices, options.tier, problem);
  if (voice == nullptr) return false;
  timing.tier = voice->name;
  timing.shapes = ShapeSet::kPrestonBlair;
  timing.labels = voice->labels;
  timing.end = end;
  if (!timing.labels.empty()) return true;
  return Refuse(
      problem, 0,
      "the voice " + text::QuotedLine(voice->name) + " has no phonemes: break it down in Papagayo");
}

}  // namespace

const TimingForm kPapagayo = {"Papagayo project", true, false, Recognises, Read};

}  // namespace lipvane::speech
