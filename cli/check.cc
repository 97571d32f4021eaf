#include "cli/check.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <ostream>
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
#include "lipvane/check/vocabulary.h"
#include "lipvane/host/standalone/scene.h"
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
  for (const std::string& file : scene->References()) {
    PrintWarning("the nodes of the referenced file \"" + file + "\" are missing: it is not read");
  }
  return scene;
}

/// What the animations may move: by the first pose file among them, else by a new rig.
Vocabulary FindVocabulary(const std::vector<Input>& inputs) {
  for (const Input& input : inputs) {
    if (input.format != FileFormat::kLbp) continue;
    if (auto vocabulary = check::VocabularyOf(input.text)) return *vocabulary;
  }
  return check::NewRigVocabulary();
}

void AddWrongFormat(const Input& input, std::vector<Finding>& findings) {
  check::Recorder(input.name, findings)
      .Add(1, check::rule::kUnreadable,
           input.format == FileFormat::kScene
               ? "this is a Maya ASCII scene: a scene is given with --scene"
               : "this is neither a bone pose file (LBP) nor an animation file (LTF)");
}

void CheckInput(const Input& input, const std::optional<Scene>& scene, const std::string& sceneName,
                const Vocabulary& vocabulary, std::vector<Finding>& findings) {
  const std::size_t before = findings.size();
  switch (input.format) {
    case FileFormat::kLbp:
      check::CheckLbp(input.name, input.text, findings);
      if (scene) check::CheckAgainstScene(input.name, input.text, *scene, sceneName, findings);
      check::SortByLine(findings, before);
      return;
    case FileFormat::kLtf:
      return check::CheckLtf(input.name, input.text, vocabulary, findings);
    case FileFormat::kScene:
    case FileFormat::kTiming:
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

int Check(const std::vector<std::string>& files, const std::string& sceneFile, bool asJson) {
  const std::string scene = InputName(sceneFile);
  std::vector<Input> inputs;
  bool ok = ReadInputs(files, inputs);
  std::optional<Scene> opened;
  std::string sceneProblem;
  if (!scene.empty()) {
    opened = OpenSceneToSearch(sceneFile, sceneProblem);
    ok = opened.has_value() && ok;
    if (!HasAny(inputs, FileFormat::kLbp)) {
      PrintWarning(scene + ": there is no bone pose file (LBP) to hold against it");
    }
  }
  const Vocabulary vocabulary =
      HasAny(inputs, FileFormat::kLtf) ? FindVocabulary(inputs) : Vocabulary();
  std::vector<Finding> findings;
  for (const Input& input : inputs) {
    if (input.problem.empty()) {
      CheckInput(input, opened, scene, vocabulary, findings);
    } else if (asJson) {
      AddUnopened(input.name, input.problem, findings);
    }
  }
  if (asJson && !sceneProblem.empty()) AddUnopened(scene, sceneProblem, findings);

  const std::string result = asJson ? CheckReport(findings) : CheckLines(findings);
  ok = WriteOutput(kStandardOutput, [&](std::ostream& out) { out << result; }) && ok;
  const bool hasError = std::any_of(findings.begin(), findings.end(), [](const Finding& finding) {
    return finding.rule.severity == check::Severity::kError;
  });
  return ok && !hasError ? 0 : 1;
}

}  // namespace lipvane::cli
