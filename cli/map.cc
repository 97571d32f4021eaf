#include "cli/map.h"

#include <ostream>

#include "cli/messages.h"
#include "cli/output.h"
#include "lipvane/engine/bone_pose.h"
#include "lipvane/formats/lbp.h"
#include "lipvane/formats/phonemes.h"

namespace lipvane::cli {

int Map(const std::string& lbpFileName, const std::string& characterName,
        const std::string& output) {
  if (!FolderExists(output)) return 1;
  TBonePoseInfo unusedPoses;
  PhonemeMapping mapping;
  ReadProblem problem;
  if (!ReadLbpFile(lbpFileName, unusedPoses, mapping, problem)) {
    PrintProblem(lbpFileName, problem);
    return 1;
  }
  const std::string bytes = mapping.LipsincMapText(characterName);
  return WriteOutput(output, [&](std::ostream& out) { out << bytes; }) ? 0 : 1;
}

}  // namespace lipvane::cli
