#include "lipvane/check/timing/timing_check.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "lipvane/check/repeated.h"
#include "lipvane/check/words.h"
#include "lipvane/speech/label_kinds.h"
#include "lipvane/speech/meanings.h"
#include "lipvane/speech/phones.h"
#include "lipvane/speech/words.h"
#include "lipvane/text/lists.h"
#include "lipvane/text/numbers.h"

namespace lipvane::check {
namespace {

using speech::TimedLabel;

std::string At(const std::string& label, double seconds) {
  return Quoted(label) + " at " + text::RoundedReal(seconds) + " s";
}

/// The lips, or the teeth on a lip: viewers see at once when these do not meet.
bool IsClosure(std::string_view phoneme) {
  constexpr std::array<std::string_view, 5> kClosures = {"P", "B", "M", "F", "V"};
  return std::find(kClosures.begin(), kClosures.end(), phoneme) != kClosures.end();
}

void CheckLengths(const speech::Timing& timing, const speech::Meanings& meanings,
                  double framesPerSecond, Recorder& recorder) {
  Repeated closures;
  Repeated others;
  for (const TimedLabel& label : timing.labels) {
    const speech::Meaning meaning = meanings.Of(label.text);
    // What is as long as a frame but for the rounding of its ends is.
    const double frames = (label.end - label.start) * framesPerSecond;
    if (speech::IsSilence(meaning) || frames > 1.0 - 1e-6) continue;
    (IsClosure(meaning.phoneme) ? closures : others)
        .Add(static_cast<std::size_t>(label.line), At(label.text, label.start));
  }
  const std::string shorter = "shorter than a frame at " + text::RoundedReal(framesPerSecond) +
                              " frames a second (" +
                              text::RoundedReal(std::round(1e4 / framesPerSecond) / 10) + " ms)";
  const auto add = [&](const Repeated& found, const Rule& rule, const char* one, const char* many,
                       const char* effect) {
    if (found.count == 0) return;
    recorder.Add(found.line, rule,
                 Counted(static_cast<long long>(found.count), one, many) + shorter +
                     (found.count == 1 ? ", " : ", the first ") + found.text + ": " + effect);
  };
  add(closures, rule::kShortClosure, "closure (P, B, M, F, V) is ", "closures (P, B, M, F, V) are ",
      "perhaps no frame shows the lips meet");
  add(others, rule::kShortSound, "sound is ", "sounds are ",
      others.count == 1 ? "perhaps no frame shows it" : "perhaps no frame shows them");
}

void CheckLabels(const std::vector<speech::UnknownLabel>& unknown, Recorder& recorder) {
  for (const speech::UnknownLabel& label : unknown) {
    recorder.Add(
        static_cast<std::size_t>(label.line), rule::kUnknownLabel,
        At(label.text, label.start) +
            (label.count > 1 ? ", " + std::to_string(label.count) + " times," : "") +
            (label.phoneme.empty() ? " stands for no phoneme"
                                   : " stands for the phoneme " + std::string(label.phoneme) +
                                         ", which the face lacks"));
  }
}

/// A tier of words is one finding, however many there are.
void AddWordsTier(const speech::WordsTier& words, const std::vector<speech::UnknownLabel>& unknown,
                  std::size_t line, Recorder& recorder) {
  std::vector<std::string> labels;
  labels.reserve(unknown.size());
  for (const speech::UnknownLabel& label : unknown)
    labels.push_back(At(label.text, label.start));
  recorder.Add(
      line, rule::kWordsTier,
      words.text + (labels.empty() ? "" : ". Not known as sounds: " + text::Listed(labels)));
}

}  // namespace

void CheckTiming(const std::string& fileName, std::string_view text,
                 const speech::TimingOptions& options, const PhonemeMapping& mapping,
                 double framesPerSecond, std::vector<Finding>& findings) {
  const std::size_t before = findings.size();
  Recorder recorder(fileName, findings);
  speech::Timing timing;
  ReadProblem problem;
  if (!speech::ReadTimingText(text, options, timing, problem)) {
    recorder.Add(static_cast<std::size_t>(std::max(problem.line, 1)), rule::kUnreadable,
                 problem.reason);
    return;
  }
  const speech::Meanings meanings(mapping, timing.shapes);
  std::vector<speech::UnknownLabel> unknown;
  speech::PhonesOf(timing, meanings, nullptr, unknown);
  if (const auto words = speech::FindWordsTier(timing, meanings); !words.text.empty()) {
    AddWordsTier(words, unknown, static_cast<std::size_t>(timing.labels.front().line), recorder);
    return;
  }
  CheckLabels(unknown, recorder);
  CheckLengths(timing, meanings, framesPerSecond, recorder);
  if (const auto words = speech::FindUnknownWords(timing, meanings); !words.text.empty()) {
    recorder.Add(static_cast<std::size_t>(words.line), rule::kUnknownWord, words.text);
  }
  SortByLine(findings, before);
}

}  // namespace lipvane::check
