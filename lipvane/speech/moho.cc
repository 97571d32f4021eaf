#include <string>

#include "lipvane/speech/label_tables.h"
#include "lipvane/speech/timing_forms.h"
#include "lipvane/speech/words.h"

namespace lipvane::speech {
namespace {

constexpr std::string_view kTitle = "MohoSwitch1";

bool Recognises(std::string_view text) {
  return TakeWord(text) == kTitle;
}

bool Read(std::string_view text, const TimingOptions& options, Timing& timing,
          ReadProblem& problem) {
  const double rate = options.framesPerSecond.value_or(kMohoFramesPerSecond);
  Lines lines(text);
  std::string_view line;
  lines.NextFilled(line);
  if (line != kTitle)
    return Refuse(problem, lines.LineNumber(), "more than \"MohoSwitch1\" stands here");
  while (lines.NextFilled(line)) {
    const auto frame = WholeNumber(TakeWord(line));
    if (!frame || line.empty()) {
      return Refuse(problem, lines.LineNumber(), "a line needs a frame and a mouth shape");
    }
    // The first frame is number 1.
    const double start = (*frame - 1.0) / rate;
    if (!AddStart(timing, line, start, lines.LineNumber(), problem)) return false;
  }
  // Rhubarb writes such files too, with its own letters; the sets share no shape but E.
  const bool areRhubarbs = AreShapes(ShapeSet::kRhubarb, timing.labels);
  timing.shapes = areRhubarbs ? ShapeSet::kRhubarb : ShapeSet::kPrestonBlair;
  // Nothing says how long the last shape stays: for a frame.
  if (!timing.labels.empty()) timing.labels.back().end += 1.0 / rate;
  return true;
}

}  // namespace

const TimingForm kMoho = {"Moho switch file", false, true, Recognises, Read};

}  // namespace lipvane::speech
