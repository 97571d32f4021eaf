#include <string>

#include "lipvane/speech/label_tables.h"
#include "lipvane/speech/timing_readers.h"
#include "lipvane/speech/words.h"
#include "lipvane/text/numbers.h"

namespace lipvane::speech {

/// A line is a start and a shape; nothing else that is read has a number and one more word.
bool IsRhubarbTsv(std::string_view text) {
  std::string_view line;
  if (!Lines(text).NextFilled(line)) return false;
  const bool beginsWithNumber = text::FiniteReal(TakeWord(line)).has_value();
  return beginsWithNumber && !line.empty() && !text::FiniteReal(TakeWord(line)) && line.empty();
}

bool ReadRhubarbTsv(std::string_view text, const TimingOptions& /*options*/, Timing& timing,
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
    if (!timing.labels.empty()) timing.labels.back().end = *start;
    timing.labels.push_back({std::string(shape), *start, *start, lines.LineNumber()});
  }
  // A list of starts that somebody else made may hold sounds.
  if (AreShapes(ShapeSet::kRhubarb, timing.labels)) timing.shapes = ShapeSet::kRhubarb;
  // The last line says when the mouth closes, and lasts no time of its own.
  if (!timing.labels.empty() && timing.labels.back().text == "X") timing.labels.pop_back();
  return true;
}

}  // namespace lipvane::speech
