#include "cli/check.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <ostream>
#include <string_view>
#include <utility>

#include "cli/file_format.h"
#include "cli/input.h"
#include "cli/messages.h"
#include "cli/output.h"
#include "cli/progress.h"
#include "cli/report.h"
#include "cli/scene_file.h"
#include "lipvane/check/finding.h"
#include "lipvane/check/lbp_check.h"
#include "lipvane/check/ltf_check.h"
#include "lipvane/check/scene_check.h"
#include "lipvane/check/timing/timing_check.h"
#include "lipvane/check/vocabulary.h"
#include "lipvane/formats/phonemes.h"
#include "lipvane/host/standalone/references.h"
#include "lipvane/host/standalone/scene.h"
#include "lipvane/speech/timing.h"
#include "lipvane/text/printable.h"

namespace lipvane::cli {
namespace {

using check::Finding;
using check::Vocabulary;
using standalone::Scene;

struct Input : InputFile {
  std::string problem;  ///< why it could not be read
};

/// False when any could not be read.
bool ReadInputs(const std::vector<std::string>& files, std::vector<Input>& inputs) {
  bool ok = true;
  for (const std::string& file : files) {
    Input input;
    if (!ReadInput(file, input, input.problem)) {
      PrintProblem(input.name, {0, input.problem});
      ok = false;
    }
    inputs.push_back(std::move(input));
  }
  return ok;
}

bool HasAny(const std::vector<Input>& inputs, FileFormat format) {
  return std::any_of(inputs.begin(), inputs.end(),
                     [&](const Input& input) { return input.format == format; });
}

std::optional<Scene> OpenSceneToSearch(const std::string& fileName, std::string& problem) {
  Progress progress;
  std::optional<Scene> scene = OpenScene(fileName, "--scene", progress, problem);
  if (!scene) return scene;
  const std::string missing = standalone::MissingReferences(*scene);
  if (!missing.empty()) PrintWarning(missing);
  return scene;
}

/// What `read` makes of the first pose file that it can read, else what a new rig has: all other
/// files are held against that.
template <typename Value>
Value FirstOf(const std::vector<Input>& inputs, std::optional<Value> (*read)(std::string_view),
              Value (*ofNewRig)()) {
  for (const Input& input : inputs) {
    if (input.format != FileFormat::kLbp) continue;
    if (auto value = read(input.text)) return *value;
  }
  return ofNewRig();
}

/// What the files of each kind are held against.
struct Measure {
  std::optional<Scene> scene;
  Vocabulary vocabulary;
  PhonemeMapping phonemes;
  double framesPerSecond = kFilmRate;
};

void AddWrongFormat(const Input& input, std::vector<Finding>& findings) {
  check::Recorder(input.name, findings)
      .Add(1, check::rule::kUnreadable,
           input.format == FileFormat::kScene
               ? "this is a Maya ASCII scene: a scene is given with --scene"
           : input.text.empty()
               ? "the file is empty"
               : "this is no bone pose file (LBP), animation file (LTF) or timing file");
}

void CheckInput(const Input& input, const Measure& measure, const CheckOptions& options,
                std::vector<Finding>& findings) {
  const std::size_t before = findings.size();
  switch (input.format) {
    case FileFormat::kLbp:
      check::CheckLbp(input.name, input.text, findings);
      if (measure.scene) {
        check::CheckAgainstScene(input.name, input.text,
                                 {*measure.scene, InputName(options.scene), options.nameSpace},
                                 findings);
      }
      check::SortByLine(findings, before);
      return;
    case FileFormat::kLtf:
      return check::CheckLtf(input.name, input.text, measure.vocabulary, findings);
    case FileFormat::kTiming:
      return check::CheckTiming(
          input.name, input.text,
          speech::OptionsFor(input.text, {options.tier, options.framesPerSecond}), measure.phonemes,
          measure.framesPerSecond, findings);
    case FileFormat::kScene:
    case FileFormat::kUnknown:
      return AddWrongFormat(input, findings);
  }
}

std::string CheckLines(const std::vector<Finding>& findings) {
  std::string lines;
  for (const Finding& finding : findings) {
    std::string line = finding.file;
    line.append(":").append(std::to_string(finding.line)).append(": ");
    line.append(check::SeverityName(finding.rule.severity)).append(": ").append(finding.text);
    line.append(" [").append(finding.rule.id).append("]");
    lines += text::PrintableLine(line) + "\n";
  }
  return lines;
}

/// What could not be opened was said on standard error, which readers of JSON may not see.
void AddUnopened(const std::string& fileName, const std::string& problem,
                 std::vector<Finding>& findings) {
  check::Recorder(fileName, findings).Add(1, check::rule::kUnreadable, problem);
}

}  // namespace

int Check(const CheckOptions& options) {
  const std::string scene = InputName(options.scene);
  std::vector<Input> inputs;
  bool ok = ReadInputs(options.files, inputs);
  Measure measure;
  std::string sceneProblem;
  if (!options.scene.empty()) {
    measure.scene = OpenSceneToSearch(options.scene, sceneProblem);
    if (measure.scene && !HasNamespace(*measure.scene, scene, options.nameSpace)) {
      measure.scene.reset();
      sceneProblem = "there is no such namespace";
    }
    ok = measure.scene.has_value() && ok;
    if (measure.scene) measure.framesPerSecond = measure.scene->FramesPerSecond();
    if (!HasAny(inputs, FileFormat::kLbp)) {
      PrintWarning(scene + ": there is no bone pose file (LBP) to hold against it");
    }
  }
  measure.framesPerSecond = options.framesPerSecond.value_or(measure.framesPerSecond);
  if (HasAny(inputs, FileFormat::kLtf)) {
    measure.vocabulary = FirstOf(inputs, check::VocabularyOf, check::NewRigVocabulary);
  }
  if (HasAny(inputs, FileFormat::kTiming)) {
    measure.phonemes = FirstOf(inputs, check::PhonemesOf, check::NewRigPhonemes);
  }
  std::vector<Finding> findings;
  for (const Input& input : inputs) {
    if (input.problem.empty()) {
      CheckInput(input, measure, options, findings);
    } else if (options.asJson) {
      AddUnopened(input.name, input.problem, findings);
    }
  }
  if (options.asJson && !sceneProblem.empty()) AddUnopened(scene, sceneProblem, findings);

  const std::string result = options.asJson ? CheckReport(findings) : CheckLines(findings);
  ok = WriteOutput(kStandardOutput, [&](std::ostream& out) { out << result; }) && ok;
  const bool hasError = std::any_of(findings.begin(), findings.end(), [](const Finding& finding) {
    return finding.rule.severity == check::Severity::kError;
  });
  return ok && !hasError ? 0 : 1;
}

}  // namespace lipvane::cli
