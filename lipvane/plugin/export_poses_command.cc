#include "lipvane/plugin/export_poses_command.h"

#include <algorithm>
#include <cstddef>
#include <new>

#include "lipvane/engine/controller.h"
#include "lipvane/formats/lbp.h"
#include "lipvane/plugin/pose_labels.h"

namespace lipvane::plugin {
namespace {

constexpr double kFramesPerPose = 10.0;

// The words between blanks; two blanks in a row hold no word, as where the host splits. Not by a
// stream, which takes the lack of memory for its end.
std::vector<std::string> Words(const std::string& text) {
  std::vector<std::string> words;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find(' ', begin), text.size());
    if (end > begin) words.push_back(text.substr(begin, end - begin));
    begin = end + 1;
  }
  return words;
}

}  // namespace

std::unique_ptr<host::Command> ExportPosesCommand::Create(host::Host& host) {
  return std::unique_ptr<host::Command>(new (std::nothrow) ExportPosesCommand(host));
}

host::Syntax ExportPosesCommand::NewSyntax() {
  host::Syntax syntax;
  syntax.AddFlag("-bl", "-bones", host::ArgType::kString);
  syntax.AddFlag("-hb", "-headbone", host::ArgType::kString);
  syntax.AddFlag("-lbp", "-lbpfile", host::ArgType::kString);
  syntax.AddFlag("-np", "-numposes", host::ArgType::kLong);
  syntax.AddFlag("-map", "-mapping", host::ArgType::kString);
  return syntax;
}

std::vector<std::string> ExportPosesCommand::BoneNames(const host::ArgDatabase& flags) {
  std::string bones;
  std::string headBone;
  flags.GetFlagArgument("-bl", 0, bones);
  flags.GetFlagArgument("-hb", 0, headBone);
  std::vector<std::string> names = Words(bones);
  names.push_back(headBone);
  return names;
}

host::Status ExportPosesCommand::ParseArgs(const host::Arguments& arguments) {
  const auto database = host_.NewArgDatabase(NewSyntax(), arguments);
  // An absent flag leaves its field as it was made; no status is looked at.
  boneNames_ = BoneNames(*database);
  headBoneName_ = boneNames_.back();
  database->GetFlagArgument("-lbp", 0, lbpFileName_);
  database->GetFlagArgument("-np", 0, numPoses_);
  database->GetFlagArgument("-map", 0, mapFileName_);
  mappingFlag_ = database->IsFlagSet("-map");
  return {};
}

host::Status ExportPosesCommand::LoadMapping() {
  const auto refuse = [this](const std::string& text) -> host::Status {
    host_.ShowMessageBox(text, "Application Error", host::BoxIcon::kInformation);
    return host::StatusCode::kFailure;
  };
  if (mapFileName_.empty()) return refuse("Must select a valid LBP file for mapping informaion.");
  TController scratch;
  if (!ReadLbpFile(mapFileName_, *scratch.BonePoseInfo(), phonemeMapping_)) {
    return refuse("Could not parse selected LBP file for mapping informaion.");
  }
  return {};
}

host::Status ExportPosesCommand::DoIt(const host::Arguments& arguments) {
  const host::Status parsed = ParseArgs(arguments);
  if (!parsed.ok()) return parsed;
  if (mappingFlag_) {
    const host::Status loaded = LoadMapping();
    if (!loaded.ok()) return loaded;
  }
  std::string reason;
  if (!output_.Open(lbpFileName_, text::OutputFile::Mode::kText, reason)) {
    return host::StatusCode::kFailure;  // deliberate: without a message
  }
  scene::SkeletonCapture skeleton(host_, boneNames_);
  const bool stillOpen = WriteHeader(skeleton);
  WritePoses(skeleton);
  const bool written = !stillOpen || output_.Commit(reason);
  host_.SetCurrentTime(0.0);
  if (!written) {
    host_.DisplayError("cannot write LBP file: " + lbpFileName_ + ": " + reason);
    return host::StatusCode::kFailure;
  }
  SayWhoseBonesTheyAre();
  return {};
}

bool ExportPosesCommand::WriteHeader(scene::SkeletonCapture& skeleton) {
  LbpHeader header;
  header.mapping = mappingFlag_ ? &phonemeMapping_ : nullptr;
  header.boneCount = static_cast<int>(boneNames_.size());
  header.headBoneName = headBoneName_;
  header.hierarchyComplete = skeleton.AppendHierarchy(header.hierarchy).ok();
  const bool mapped = WriteLbpHeader(output_.Stream(), header);
  if (!mapped) {
    std::string reason;
    output_.Commit(reason);  // as far as it was written; the poses go nowhere
    host_.ShowMessageBox("Error: Mapping error.  Exported LBP file may be corrupt.",
                         "Application Error", host::BoxIcon::kExclamation);
  }
  return mapped;
}

void ExportPosesCommand::WritePoses(scene::SkeletonCapture& skeleton) {
  std::ostream& out = output_.Stream();
  WriteLbpPoseCount(out, numPoses_);
  for (int pose = 0; pose < numPoses_; ++pose) {
    WriteLbpPoseLabel(out, pose, mappingFlag_ ? PoseName(pose, phonemeMapping_) : PoseName(pose));
    host_.SetCurrentTime(kFramesPerPose * pose);
    std::vector<LbpBone> bones;
    skeleton.AppendPose(bones);  // what could not be read has been reported
    WritePoseBoneLines(out, bones);
    WriteLbpBlankLine(out);
  }
}

// Deliberate: a greeting, as old as the format.
void ExportPosesCommand::SayWhoseBonesTheyAre() {
  if (headBoneName_ != "skullSkullskullHollowSkulls") return;
  host_.ShowMessageBox(
      "If you like traffic...  Wednesday, 19 December 2001 Orrin Vale\nToasty!\nQuick question for "
      "you... what's on my pants?! ;-)",
      "All your bones are belong to us...", host::BoxIcon::kInformation);
}

}  // namespace lipvane::plugin
