#include "lipvane/speech/timing.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "lipvane/formats/file_content.h"
#include "lipvane/speech/encoding.h"
#include "lipvane/speech/praat_symbols.h"
#include "lipvane/speech/timing_forms.h"
#include "lipvane/speech/words.h"
#include "lipvane/text/numbers.h"
#include "lipvane/text/printable.h"

namespace lipvane::speech {
namespace {

/// In the order in which they are tried.
const TimingForm* const kForms[] = {&kTextGrid, &kRhubarbJson, &kRhubarbXml, &kPapagayo,
                                    &kMoho,     &kRhubarbTsv,  &kPlainTable};

std::string Seconds(double seconds) {
  return text::ExactReal(seconds) + " s";
}

std::string Longer() {
  return ": no recording is longer than " + std::to_string(static_cast<long long>(kLongest)) + " s";
}

/// What holds for the labels of every form.
bool Check(Timing& timing, ReadProblem& problem) {
  if (timing.labels.empty()) return Refuse(problem, 0, "it holds no labels");
  double before = 0.0;  // where the label before ends, which is on this line:
  int lineBefore = 0;
  for (TimedLabel& label : timing.labels) {
    label.text = WithoutPraatNotation(Trim(label.text));
    const auto refuse = [&](const std::string& reason) {
      return Refuse(problem, label.line, text::QuotedLine(label.text) + " " + reason);
    };
    const auto start = [&] { return "starts at " + Seconds(label.start); };
    const auto end = [&] { return "ends at " + Seconds(label.end); };
    if (label.end <= label.start - kTouching) return refuse(end() + ", before it " + start());
    if (label.end > kLongest) {
      return refuse(end() + Longer());
    }
    if (label.start <= before - kTouching) {
      return refuse(start() + (lineBefore == 0
                                   ? ", before the beginning"
                                   : ", before the label on line " + std::to_string(lineBefore) +
                                         " ends at " + Seconds(before)));
    }
    label.start = std::max(label.start, before);
    label.end = std::max(label.end, label.start);
    before = label.end;
    lineBefore = label.line;
  }
  timing.end = std::max(timing.end, before);
  return timing.end <= kLongest ||
         Refuse(problem, 0, "it ends at " + Seconds(timing.end) + Longer());
}

/// The form of a text without white space around it, or null.
const TimingForm* FormOf(std::string_view body) {
  const auto* const found =
      std::find_if(std::begin(kForms), std::end(kForms),
                   [&](const TimingForm* form) { return form->recognises(body); });
  return found == std::end(kForms) ? nullptr : *found;
}

/// The same of a file's bytes.
const TimingForm* FormOfFile(std::string_view bytes) {
  std::string content;
  ReadProblem unused;
  return ToUtf8(bytes, content, unused) ? FormOf(Trim(content)) : nullptr;
}

}  // namespace

const char* TimingFormat(std::string_view text) {
  const TimingForm* const form = FormOfFile(text);
  return form == nullptr ? nullptr : form->name;
}

TimingOptions OptionsFor(std::string_view text, TimingOptions options) {
  const TimingForm* const form = FormOfFile(text);
  if (form == nullptr || !form->hasTiers) options.tier.clear();
  if (form == nullptr || !form->lacksRate) options.framesPerSecond.reset();
  return options;
}

bool AddStart(Timing& timing, std::string_view label, double start, int line,
              ReadProblem& problem) {
  if (!timing.labels.empty()) {
    TimedLabel& before = timing.labels.back();
    if (start < before.start) {
      return Refuse(problem, line,
                    text::QuotedLine(label) + " starts at " + Seconds(start) +
                        ", before the label on line " + std::to_string(before.line) + " does");
    }
    before.end = start;
  }
  timing.labels.push_back({std::string(label), start, start, line});
  return true;
}

bool ReadTimingText(std::string_view text, const TimingOptions& options, Timing& timing,
                    ReadProblem& problem) {
  std::string content;
  if (!ToUtf8(text, content, problem)) return false;
  const std::string_view body = Trim(content);
  if (body.empty()) return Refuse(problem, 0, "it is empty");
  const TimingForm* const found = FormOf(body);
  if (found == nullptr) {
    return Refuse(problem, 0,
                  "it is none of the timing files that are read: TextGrid, Rhubarb's JSON, XML or "
                  "TSV, Papagayo project, Moho switch file, or lines of \"start end label\"");
  }
  const TimingForm& form = *found;
  if (!options.tier.empty() && !form.hasTiers) {
    return Refuse(problem, 0,
                  "it is a " + std::string(form.name) + " and has no tiers: leave out --tier");
  }
  if (options.framesPerSecond && !form.lacksRate) {
    return Refuse(problem, 0,
                  "it is a " + std::string(form.name) + " and says its times: leave out --fps");
  }
  Timing read;
  read.format = form.name;
  const int linesBefore =
      static_cast<int>(std::count(static_cast<const char*>(content.data()), body.data(), '\n'));
  if (!form.read(body, options, read, problem)) {
    if (problem.line > 0) problem.line += linesBefore;
    return false;
  }
  for (TimedLabel& label : read.labels)
    label.line += linesBefore;
  if (!Check(read, problem)) return false;
  timing = std::move(read);
  return true;
}

bool ReadTiming(const std::string& fileName, const TimingOptions& options, Timing& timing,
                ReadProblem& problem) {
  return ReadContent(fileName, problem, [&](const std::string& content) {
    return ReadTimingText(content, options, timing, problem);
  });
}

}  // namespace lipvane::speech
