#include "cli/inspect.h"

#include <utility>

#include "cli/file_format.h"
#include "cli/messages.h"
#include "cli/report.h"
#include "cli/summary.h"
#include "lipvane/engine/bone_pose.h"
#include "lipvane/formats/lbp.h"
#include "lipvane/formats/phonemes.h"
#include "lipvane/host/standalone/scene.h"
#include "lipvane/text/file.h"

namespace lipvane::cli {
namespace {

bool InspectLbp(const std::string& fileName, const std::string& text, bool asJson) {
  TBonePoseInfo poseInfo;
  PhonemeMapping mapping;
  ReadProblem problem;
  if (!ReadLbpText(text, poseInfo, mapping, problem)) {
    const std::string line = problem.line > 0 ? ":" + std::to_string(problem.line) : "";
    PrintLine(fileName + line + ": " + problem.reason);
    return false;
  }
  return PrintResult(asJson ? LbpReport(text, poseInfo, mapping)
                            : LbpSummary(fileName, poseInfo, mapping));
}

bool InspectScene(const std::string& fileName, std::string text, bool asJson) {
  try {
    const auto scene = standalone::Scene::Parse(std::move(text), fileName);
    for (const std::string& note : scene.ReadingNotes())
      PrintWarning(note);
    return PrintResult(asJson ? SceneReport(scene) : SceneSummary(fileName, scene));
  } catch (const standalone::SceneError& error) {
    PrintLine(error.what());
    return false;
  }
}

bool InspectText(const std::string& fileName, std::string text, bool asJson) {
  switch (GuessFormat(text, fileName)) {
    case FileFormat::kScene:
      return InspectScene(fileName, std::move(text), asJson);
    case FileFormat::kLbp:
      return InspectLbp(fileName, text, asJson);
    case FileFormat::kLtf:
      PrintLine(fileName + ": animation files (LTF) cannot be inspected yet");
      return false;
    case FileFormat::kUnknown:
      break;
  }
  PrintLine(fileName + ": it is neither a Maya ASCII scene nor a bone pose file (LBP)");
  return false;
}

}  // namespace

int Inspect(const std::string& fileName, bool asJson) {
  std::string text;
  std::string reason;
  if (!text::ReadFile(fileName, text, reason)) {
    PrintLine(fileName + ": " + reason);
    return 1;
  }
  return InspectText(fileName, std::move(text), asJson) ? 0 : 1;
}

}  // namespace lipvane::cli
