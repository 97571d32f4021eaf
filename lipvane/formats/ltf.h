#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "lipvane/engine/animation.h"
#include "lipvane/formats/read_problem.h"

/// The animation file (LTF): keyed tracks for speech targets and expressions.
namespace lipvane {

/// The only version that there is.
inline constexpr double kLtfVersion = 1.0;

/// Keys stand on lines of this many; deliberately one fewer on the first line of a track.
inline constexpr int kKeysOnFirstLine = 25;
inline constexpr int kKeysOnLaterLines = 26;

/// Appends the tracks of a file to an animation and digests it. False when the file cannot be read,
/// is no animation file of version 1.0, has a track that does not stand between "{" and "}", ends
/// early, or announces more keys than limits.h allows. Tracks that were complete before the failure
/// stay in the animation, undigested.
///
/// What else may be odd about it is accepted: a missing or unreadable number is 0, and nothing
/// sorts the keys. Times are cut to whole numbers towards zero; those beyond 32 bits become the
/// nearest that there is. The engine's failures (TamskException) pass through.
bool LoadLtfFile(const std::string& fileName, TAnimation& animation);
/// The same; also says why it refused.
bool LoadLtfFile(const std::string& fileName, TAnimation& animation, ReadProblem& problem);
/// The same for a file's content.
bool ReadLtfText(std::string_view text, TAnimation& animation, ReadProblem& problem);

/// Writes an animation so that LoadLtfFile reads back the same tracks, key for key. Header lines
/// are for people: they say where the animation is from. An earlier file is replaced by a complete
/// one or not at all.
///
/// False when it cannot be written, or when the format has no form for it: more keys than limits.h
/// allows; a value that is not finite; a track name or a header line that is empty, holds a line
/// feed or "//", or ends in a carriage return.
bool WriteLtfFile(const std::string& fileName, const TAnimation& animation,
                  const std::vector<std::string>& headerLines = {});
/// The same; also says why it failed.
bool WriteLtfFile(const std::string& fileName, const TAnimation& animation,
                  const std::vector<std::string>& headerLines, std::string& reason);
/// The same into memory.
bool LtfText(const TAnimation& animation, const std::vector<std::string>& headerLines,
             std::string& text, std::string& reason);

}  // namespace lipvane
