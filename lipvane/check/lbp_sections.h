#pragma once

#include <string_view>
#include <vector>

#include "lipvane/check/data_line.h"

namespace lipvane::check {

/// The lines of a bone pose file by section, told by their shape and not by the counts before them:
/// so a count that is wrong can be named where it stands. Views into the text, which must live as
/// long.
struct LbpSections {
  DataLine version;
  DataLine speechTargetCount;
  DataLine speechTargets;
  std::vector<DataLine> phonemes;
  DataLine boneCount;
  std::vector<DataLine> hierarchy;
  std::vector<DataLine> assignments;
  DataLine poseCount;
  std::vector<DataLine> boneLines;
};

LbpSections SplitLbpSections(std::string_view text);

/// "name -> parent"?
bool HasArrow(std::string_view line);
/// What the reader takes for the bone's name.
std::string_view BoneName(std::string_view hierarchyLine);
bool IsBlank(std::string_view text);

}  // namespace lipvane::check
