#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "lipvane/formats/read_problem.h"

/// When what is said: the files of aligners and lip-sync tools.
namespace lipvane::speech {

/// A sound or a mouth shape, from one moment to another.
struct TimedLabel {
  /// As the file has it, without white space around it, Praat's notation of phonetic symbols turned
  /// into the symbols; may be empty.
  std::string text;
  double start = 0.0;  ///< seconds
  double end = 0.0;    ///< seconds, not before `start`
  int line = 0;        ///< of the file, from 1
};

/// The mouth shapes that a source may give in place of sounds.
enum class ShapeSet { kNone, kRhubarb, kPrestonBlair };

inline constexpr char kTextGridFormat[] = "TextGrid";

struct Timing {
  std::string format;  ///< what the file is: "TextGrid", "Rhubarb JSON" ...
  std::string tier;    ///< the tier or the voice that was read; empty where files have none
  /// Of a TextGrid: the tier that is read when none is named, or empty.
  std::string phoneTier;
  ShapeSet shapes = ShapeSet::kNone;
  /// In order of time, from 0 on. They do not overlap; where they leave a gap there is silence.
  std::vector<TimedLabel> labels;
  /// Seconds; of the recording where the file says it, but not before the last label's.
  double end = 0.0;
};

/// What a file leaves open. A file to which an option means nothing is refused with it.
struct TimingOptions {
  /// The tier of a TextGrid or the voice of a Papagayo project. When empty: the only tier whose
  /// name ends in "phones", or else whose last word is "phone" or "MAU", in any case; the only
  /// voice.
  std::string tier;
  /// Of a Moho switch file, which counts frames; above 0. kMohoFramesPerSecond when not given.
  std::optional<double> framesPerSecond;
};

/// The rate of a new project in Moho.
inline constexpr double kMohoFramesPerSecond = 24.0;

/// Labels may overlap by less than this, in seconds: tools round the two sides of one boundary
/// apart.
inline constexpr double kTouching = 0.001;

/// Animation files count milliseconds in 32 bits: no recording is longer, in seconds.
inline constexpr double kLongest = 2'000'000.0;

/// What the text of a timing file is ("TextGrid", "Rhubarb JSON" ...), by its beginning; null when
/// it is none of the forms below.
const char* TimingFormat(std::string_view text);

/// Of options that are meant for several files: those that mean something to this one.
TimingOptions OptionsFor(std::string_view text, TimingOptions options);

/// Reads a timing file of any of these forms, told by its content: Praat's TextGrid, long or short;
/// Rhubarb's JSON, XML and TSV; a Papagayo project; a Moho switch file; a table of lines "start end
/// label". The text is UTF-8, or UTF-16 with a byte order mark.
///
/// False, with `timing` as it was, when the file cannot be read, is cut short or is none of these,
/// when a time is no number, negative or beyond kLongest, when labels overlap or are not in order,
/// when there are none, and when there is no such tier or none is named and several could be meant.
bool ReadTiming(const std::string& fileName, const TimingOptions& options, Timing& timing,
                ReadProblem& problem);
/// The same for a file's content.
bool ReadTimingText(std::string_view text, const TimingOptions& options, Timing& timing,
                    ReadProblem& problem);

}  // namespace lipvane::speech
