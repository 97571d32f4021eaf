#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "lipvane/formats/ltf.h"
#include "lipvane/formats/phonemes.h"
#include "lipvane/speech/meanings.h"
#include "lipvane/speech/phones.h"
#include "lipvane/speech/shapes_file.h"
#include "lipvane/speech/speech_tracks.h"
#include "lipvane/speech/timing.h"

namespace {

using namespace lipvane;

void Expect(bool held) {
  if (!held) std::abort();
}

/// What was read can be spoken, and written.
void Speak(const speech::Timing& timing) {
  const PhonemeMapping mapping{{"Eat", "Ox"}, {"Aa", "M"}, {{0.5F, 1.0F}, {0.0F, 0.25F}}};
  const speech::Meanings meanings(mapping, timing.shapes);
  const speech::Weights standIn = {0.75F, 0.0F};
  std::vector<speech::UnknownLabel> unknown;
  const auto phones = speech::PhonesOf(timing, meanings, &standIn, unknown);
  Expect(phones.size() == timing.labels.size());
  speech::LeftOut leftOut;
  const TAnimation animation = speech::SpeechTracks(phones, timing.end, meanings.Silence(),
                                                    mapping.speechTargets, {}, leftOut);
  for (const TAnimationTrack& track : animation.tracks) {
    Expect(track.KeyCount() >= 2 && track.GetKey(0)->time == 0);
    for (int i = 1; i < track.KeyCount(); ++i)
      Expect(track.GetKey(i - 1)->time < track.GetKey(i)->time);
  }
  std::string text;
  std::string reason;
  Expect(LtfText(animation, {}, text, reason));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  lipvane::speech::Timing timing;
  lipvane::ReadProblem problem;
  if (lipvane::speech::ReadTimingText(text, {}, timing, problem)) {
    Expect(!timing.labels.empty());
    double before = 0.0;
    for (const auto& label : timing.labels) {
      Expect(before <= label.start && label.start <= label.end && label.line > 0);
      before = label.end;
    }
    Expect(before <= timing.end && timing.end <= lipvane::speech::kLongest);
    Speak(timing);
  } else {
    Expect(!problem.reason.empty() && timing.labels.empty());
  }
  std::vector<lipvane::speech::ShapeRow> rows;
  if (lipvane::speech::ReadShapesText(text, 2, rows, problem)) Expect(!rows.empty());
  return 0;
}
