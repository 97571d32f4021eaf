#include "cli/inspect.h"

#include <ostream>
#include <utility>

#include "cli/file_format.h"
#include "cli/messages.h"
#include "cli/output.h"
#include "cli/report.h"
#include "cli/summary.h"
#include "lipvane/engine/animation.h"
#include "lipvane/engine/bone_pose.h"
#include "lipvane/formats/lbp.h"
#include "lipvane/formats/ltf.h"
#include "lipvane/formats/phonemes.h"
#include "lipvane/host/standalone/scene.h"
#include "lipvane/text/file.h"
#include "lipvane/text/printable.h"

namespace lipvane::cli {
namespace {

bool Print(const std::string& result) {
  return WriteOutput(kStandardOutput, [&](std::ostream& out) { out << result; });
}

bool InspectLbp(const std::string& fileName, const std::string& text, bool asJson) {
  TBonePoseInfo poseInfo;
  PhonemeMapping mapping;
  ReadProblem problem;
  if (!ReadLbpText(text, poseInfo, mapping, problem)) {
    PrintProblem(fileName, problem);
    return false;
  }
  return Print(asJson ? LbpReport(text, poseInfo, mapping)
                      : text::Printable(LbpSummary(fileName, poseInfo, mapping)));
}

bool InspectLtf(const std::string& fileName, const std::string& text, bool asJson) {
  TAnimation animation;
  ReadProblem problem;
  if (!ReadLtfText(text, animation, problem)) {
    PrintProblem(fileName, problem);
    return false;
  }
  return Print(asJson ? LtfReport(animation) : text::Printable(LtfSummary(fileName, animation)));
}

bool InspectScene(const std::string& fileName, std::string text, bool asJson) {
  try {
    const auto scene = standalone::Scene::Parse(std::move(text), fileName);
    for (const std::string& note : scene.ReadingNotes())
      PrintWarning(note);
    return Print(asJson ? SceneReport(scene) : text::Printable(SceneSummary(fileName, scene)));
  } catch (const standalone::SceneError& error) {
    PrintError(error.what());
  } catch (const ReportError& error) {
    PrintError(fileName + ": " + error.what());
  }
  return false;
}

bool InspectText(const std::string& fileName, std::string text, bool asJson) {
  switch (GuessFormat(text, fileName)) {
    case FileFormat::kScene:
      return InspectScene(fileName, std::move(text), asJson);
    case FileFormat::kLbp:
      return InspectLbp(fileName, text, asJson);
    case FileFormat::kLtf:
      return InspectLtf(fileName, text, asJson);
    case FileFormat::kTiming:
    case FileFormat::kUnknown:
      break;
  }
  PrintError(fileName +
             ": it is neither a bone pose file (LBP), an animation file (LTF) nor a Maya ASCII "
             "scene");
  return false;
}

}  // namespace

int Inspect(const std::string& fileName, bool asJson) {
  std::string text;
  std::string reason;
  if (!text::ReadFile(fileName, text, reason)) {
    PrintError(fileName + ": " + reason);
    return 1;
  }
  return InspectText(fileName, std::move(text), asJson) ? 0 : 1;
}

}  // namespace lipvane::cli
