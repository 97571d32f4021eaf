#pragma once

#include <string_view>

#include "lipvane/formats/read_problem.h"
#include "lipvane/speech/timing.h"

/// One reader a form of timing file, each in a file of its own; timing.cc lists and chooses them.
///
/// Each fills `timing` with the labels as they stand, in the file's order; what all files must keep
/// to (order, bounds) is checked afterwards, once for all. The text is UTF-8 without white space
/// around it; lines are counted from its first one. False, with the problem set and `timing`
/// in any state, when the file is not whole.
namespace lipvane::speech {

/// For files that say only when labels start: adds one, which ends the label before. False, with
/// the problem set, when that starts later.
bool AddStart(Timing& timing, std::string_view label, double start, int line, ReadProblem& problem);

bool IsTextGrid(std::string_view text);
bool ReadTextGrid(std::string_view text, const TimingOptions& options, Timing& timing,
                  ReadProblem& problem);

bool IsRhubarbJson(std::string_view text);
bool ReadRhubarbJson(std::string_view text, const TimingOptions& options, Timing& timing,
                     ReadProblem& problem);

bool IsRhubarbXml(std::string_view text);
bool ReadRhubarbXml(std::string_view text, const TimingOptions& options, Timing& timing,
                    ReadProblem& problem);

bool IsRhubarbTsv(std::string_view text);
bool ReadRhubarbTsv(std::string_view text, const TimingOptions& options, Timing& timing,
                    ReadProblem& problem);

bool IsPapagayo(std::string_view text);
bool ReadPapagayo(std::string_view text, const TimingOptions& options, Timing& timing,
                  ReadProblem& problem);

bool IsMoho(std::string_view text);
bool ReadMoho(std::string_view text, const TimingOptions& options, Timing& timing,
              ReadProblem& problem);

bool IsPlainTable(std::string_view text);
bool ReadPlainTable(std::string_view text, const TimingOptions& options, Timing& timing,
                    ReadProblem& problem);

}  // namespace lipvane::speech
