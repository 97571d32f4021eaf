#include "fuzz/timing_fuzzing.h"

#include <string_view>
#include <vector>

#include "fuzz/expect.h"
#include "lipvane/formats/ltf.h"
#include "lipvane/formats/phonemes.h"
#include "lipvane/speech/meanings.h"
#include "lipvane/speech/phones.h"
#include "lipvane/speech/speech_tracks.h"
#include "lipvane/speech/timing.h"

namespace {

using namespace lipvane;

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

int FuzzTiming(const std::string& text, const char* form) {
  speech::Timing timing;
  ReadProblem problem;
  if (!speech::ReadTimingText(text, {}, timing, problem)) {
    Expect(!problem.reason.empty() && timing.labels.empty());
    return 0;
  }
  if (timing.format != form) return -1;  // another fuzzer's business
  Expect(!timing.labels.empty());
  double before = 0.0;
  for (const auto& label : timing.labels) {
    Expect(before <= label.start && label.start <= label.end && label.line > 0);
    before = label.end;
  }
  Expect(before <= timing.end && timing.end <= speech::kLongest);
  Speak(timing);
  return 0;
}
