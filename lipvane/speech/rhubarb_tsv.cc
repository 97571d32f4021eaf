#include <string>

#include "lipvane/speech/label_tables.h"
#include "lipvane/speech/timing_forms.h"
#include "lipvane/speech/words.h"
#include "lipvane/text/numbers.h"

namespace lipvane::speech {
namespace {

/// The last line does, and lasts no time of its own. Told to draw without X, Rhubarb closes with A.
bool ClosesMouth(const Timing& timing) {
  if (timing.labels.empty()) return false;
  const std::string& last = timing.labels.back().text;
  return timing.shapes == ShapeSet::kRhubarb ? last == "X" || last == "A"
                                             : ArpabetPhoneme(last) == "Sil";
}

/// A line is a start and a shape; nothing else that is read has a number and one more word.
bool Recognises(std::string_view text) {
  std::string_view line;
  if (!Lines(text).NextFilled(line)) return false;
  const bool beginsWithNumber = text::FiniteReal(TakeWord(line)).has_value();
  return beginsWithNumber && !line.empty() && !text::FiniteReal(TakeWord(line)) && line.empty();
}

bool Read(std::string_view text, const TimingOptions& /*options*/, Timing& timing,
          ReadProblem& problem) {
  Lines lines(text);
  std::string_view line;
  while (lines.NextFilled(line)) {
    const auto start = text::FiniteReal(TakeWord(line));
    const std::string_view shape = TakeWord(line);
    if (!start || shape.empty() || !line.empty()) {
      return Refuse(problem, lines.LineNumber(),
                    "a line needs a start in seconds and a mouth shape");
    }
    if (!AddStart(timing, shape, *start, lines.LineNumber(), problem)) return false;
  }
  // A list of starts that somebody else made may hold sounds.
  if (AreShapes(ShapeSet::kRhubarb, timing.labels)) timing.shapes = ShapeSet::kRhubarb;
  if (!ClosesMouth(timing)) {
    return Refuse(problem, lines.LineNumber(),
                  "nothing says when the last label ends: a last line with a start and X does");
  }
  timing.labels.pop_back();
  return true;
}

}  // namespace

const TimingForm kRhubarbTsv = {"Rhubarb TSV", false, false, Recognises, Read};

}  // namespace lipvane::speech
