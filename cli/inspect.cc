#include "cli/inspect.h"

#include <ostream>
#include <utility>

#include "cli/input.h"
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
#include "lipvane/speech/timing.h"
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
    PrintProblem({fileName, text}, problem);
    return false;
  }
  return Print(asJson ? LbpReport(text, poseInfo, mapping)
                      : text::Printable(LbpSummary(fileName, poseInfo, mapping)));
}

bool InspectLtf(const std::string& fileName, const std::string& text, bool asJson) {
  TAnimation animation;
  ReadProblem problem;
  if (!ReadLtfText(text, animation, problem)) {
    PrintProblem({fileName, text}, problem);
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

bool InspectFile(InputFile file, bool asJson) {
  switch (file.format) {
    case FileFormat::kScene:
      return InspectScene(file.name, std::move(file.text), asJson);
    case FileFormat::kLbp:
      return InspectLbp(file.name, file.text, asJson);
    case FileFormat::kLtf:
      return InspectLtf(file.name, file.text, asJson);
    case FileFormat::kTiming:
    case FileFormat::kUnknown:
      break;
  }
  const char* timing = speech::TimingFormat(file.text);
  PrintError(file.name + ": it is " +
             (timing != nullptr ? "a timing file (" + std::string(timing) + "), " : "") +
             "neither a bone pose file (LBP), an animation file (LTF) nor a Maya ASCII scene");
  return false;
}

}  // namespace

int Inspect(const std::string& fileName, bool asJson) {
  InputFile file;
  std::string reason;
  if (!ReadInput(fileName, file, reason)) {
    PrintProblem(file.name, {0, reason});
    return 1;
  }
  return InspectFile(std::move(file), asJson) ? 0 : 1;
}

}  // namespace lipvane::cli
