#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "lipvane/formats/read_problem.h"
#include "lipvane/speech/meanings.h"

namespace lipvane::speech {

/// Reads a file of mouth shapes, rows like those of a phoneme table: a name and one weight a speech
/// target, between blanks; "//" begins a comment. False when a row has too few or too many weights,
/// one is no number, a name stands twice, or there is no row.
bool ReadShapes(const std::string& fileName, int speechTargetCount, std::vector<ShapeRow>& rows,
                ReadProblem& problem);
/// The same for a file's content.
bool ReadShapesText(std::string_view text, int speechTargetCount, std::vector<ShapeRow>& rows,
                    ReadProblem& problem);

}  // namespace lipvane::speech
