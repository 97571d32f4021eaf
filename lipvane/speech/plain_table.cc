#include <string>

#include "lipvane/speech/timing_forms.h"
#include "lipvane/speech/words.h"
#include "lipvane/text/numbers.h"

namespace lipvane::speech {
namespace {

/// What begins with a number and is none of the others: a mistake further on has a line to name.
bool Recognises(std::string_view text) {
  return text::FiniteReal(TakeWord(text)).has_value();
}

bool Read(std::string_view text, const TimingOptions& /*options*/, Timing& timing,
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

}  // namespace

const TimingForm kPlainTable = {"table", false, false, Recognises, Read};

}  // namespace lipvane::speech
