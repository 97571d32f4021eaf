#include "cli/map.h"

#include <filesystem>
#include <ostream>
#include <system_error>

#include "cli/input.h"
#include "cli/messages.h"
#include "cli/output.h"
#include "cli/pose_needs.h"
#include "lipvane/engine/bone_pose.h"
#include "lipvane/formats/lbp.h"
#include "lipvane/formats/phonemes.h"

namespace lipvane::cli {

namespace {

/// A character's name is no file, so only here the second argument tells.
bool AreSwapped(const std::string& lbpFileName, const std::string& characterName) {
  std::error_code error;
  InputFile file;
  std::string unused;
  return !std::filesystem::exists(lbpFileName, error) &&
         std::filesystem::is_regular_file(characterName, error) &&
         ReadInput(characterName, file, unused) && file.format == FileFormat::kLbp;
}

}  // namespace

int Map(const std::string& lbpFileName, const std::string& characterName, const std::string& output,
        bool force) {
  if (!FolderExists(output)) return 1;
  if (lbpFileName != kStandardInput && AreSwapped(lbpFileName, characterName)) {
    PrintError(characterName + " is an LBP file; the LBP file comes first, then CHARACTER");
    return 1;
  }
  const auto inputs = ReadInputs({{lbpFileName, FileFormat::kLbp}});
  if (!inputs) return 1;
  const InputFile& lbp = inputs->front();
  TBonePoseInfo rig;
  PhonemeMapping mapping;
  ReadProblem problem;
  if (!ReadLbpText(lbp.text, rig, mapping, problem)) {
    PrintProblem(lbp, problem);
    return 1;
  }
  if (!HasPoses(lbp, rig, force)) return 1;
  const std::string bytes = mapping.LipsincMapText(characterName);
  return WriteOutput(output, [&](std::ostream& out) { out << bytes; }) ? 0 : 1;
}

}  // namespace lipvane::cli
