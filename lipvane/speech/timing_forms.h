#pragma once

#include <string_view>

#include "lipvane/formats/read_problem.h"
#include "lipvane/speech/timing.h"

/// The forms of timing files, each in a file of its own; timing.cc lists and chooses them.
namespace lipvane::speech {

/// The text that the functions get is UTF-8 without white space around it; lines are counted from
/// its first one.
struct TimingForm {
  const char* name;
  bool hasTiers;   ///< so that one may be asked for
  bool lacksRate;  ///< of its frames
  bool (*recognises)(std::string_view text);
  /// Fills `timing` with the labels as they stand, in the file's order; what all files must keep to
  /// (order, bounds) is checked afterwards, once for all. False, with the problem set and `timing`
  /// in any state, when the file is not whole.
  bool (*read)(std::string_view text, const TimingOptions& options, Timing& timing,
               ReadProblem& problem);
};

extern const TimingForm kTextGrid;
extern const TimingForm kRhubarbJson;
extern const TimingForm kRhubarbXml;
extern const TimingForm kRhubarbTsv;
extern const TimingForm kPapagayo;
extern const TimingForm kMoho;
extern const TimingForm kPlainTable;

/// For files that say only when labels start: adds one, which ends the label before. False, with
/// the problem set, when that starts later.
bool AddStart(Timing& timing, std::string_view label, double start, int line, ReadProblem& problem);

}  // namespace lipvane::speech
