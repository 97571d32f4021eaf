#include <string>

#include "lipvane/speech/timing_readers.h"
#include "lipvane/speech/words.h"
#include "lipvane/text/numbers.h"

namespace lipvane::speech {

/// What begins with a number and is none of the others: a mistake further on has a line to name.
bool IsPlainTable(std::string_view text) {
  return text::FiniteReal(TakeWord(text)).has_value();
}

bool ReadPlainTable(std::string_view text, const TimingOptions& /*options*/, Timing& timing,
                    ReadProblem& problem) {
  Lines lines(text);
  std::string_view line;
  while (lines.NextFilled(line)) {
    const auto start = text::FiniteReal(TakeWord(line));
    const auto end = text::FiniteReal(TakeWord(line));
    if (!start || !end) {
      return Refuse(problem, lines.LineNumber(),
                    "a line needs a start and an end in seconds, and a label");
    }
    timing.labels.push_back({std::string(line), *start, *end, lines.LineNumber()});
  }
  return true;
}

}  // namespace lipvane::speech
