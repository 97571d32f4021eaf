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
  /// Lines of white space alone that data follows: the readers take them for data, the sections
  /// leave them out.
  std::vector<DataLine> blankLines;
};

/// A phoneme's name and nothing but weights, at least one?
bool IsPhonemeRow(std::string_view line);
/// Two numbers or more at its start, as bone lines have?
bool IsNumberRow(std::string_view line);

LbpSections SplitLbpSections(std::string_view text);

/// "name -> parent"?
bool HasArrow(std::string_view line);
/// What the reader takes for the bone's name.
std::string_view BoneName(std::string_view hierarchyLine);
/// What the reader of the hierarchy takes for the parent's.
std::string_view ParentName(std::string_view hierarchyLine);

}  // namespace lipvane::check
