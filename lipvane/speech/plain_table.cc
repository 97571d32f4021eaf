#include <string>

#include "lipvane/speech/timing_readers.h"
#include "lipvane/speech/words.h"

namespace lipvane::speech {

bool IsPlainTable(std::string_view text) {
  std::string_view line;
  return Lines(text).Next(line) && Number(TakeWord(line)) && Number(TakeWord(line));
}

bool ReadPlainTable(std::string_view text, const TimingOptions& /*options*/, Timing& timing,
                    ReadProblem& problem) {
  Lines lines(text);
  std::string_view line;
  while (lines.Next(line)) {
    const auto start = Number(TakeWord(line));
    const auto end = Number(TakeWord(line));
    if (!start || !end) {
      return Refuse(problem, lines.Number(),
                    "a line needs a start and an end in seconds, and a label");
    }
    timing.labels.push_back({std::string(line), *start, *end, lines.Number()});
  }
  return true;
}

}  // namespace lipvane::speech
