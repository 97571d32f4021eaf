#pragma once

#include <string>
#include <string_view>

#include "lipvane/engine/controller.h"
#include "lipvane/formats/phonemes.h"
#include "lipvane/formats/read_problem.h"

/// A face that is ready to play, from a bone pose file.
namespace lipvane {

/// Gives a controller the rig and the expressions of a file. The bones' identifiers are their
/// numbers in the hierarchy section, counted from 1, for the rig and for the expressions alike.
///
/// The poses after the last speech target's are, in order, those of the expressions of
/// kExpressionNames; further ones make none. An expression has one pose, and in it just the bones
/// that the file's pose does not leave exactly at neutral, so that a blink does not hold the mouth
/// still.
///
/// Rig, expressions and mapping that were there are replaced; the controller's animations stay.
/// False, with all as it was, when the file is refused as by ReadLbpFile.
bool LoadFace(const std::string& lbpFileName, TController& controller, PhonemeMapping& mapping);
/// The same; also says why it refused.
bool LoadFace(const std::string& lbpFileName, TController& controller, PhonemeMapping& mapping,
              ReadProblem& problem);
/// The same for a file's content.
bool LoadFaceText(std::string_view lbpText, TController& controller, PhonemeMapping& mapping,
                  ReadProblem& problem);

}  // namespace lipvane
