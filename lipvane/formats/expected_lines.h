#pragma once

#include <string>
#include <string_view>

#include "lipvane/formats/data_lines.h"
#include "lipvane/formats/read_problem.h"

namespace lipvane {

/// The data lines of a text, for a reader that knows what the next one must be: a text that ends
/// too early is a problem that says what was missing.
class ExpectedLines {
 public:
  /// Both the text and the problem must outlive this.
  ExpectedLines(std::string_view text, ReadProblem& problem) : lines_(text), problem_(problem) {}

  /// The next data line; false, with the problem set, when there is none.
  bool Next(const char* expected, std::string_view& line);
  /// The whole number that the next data line begins with.
  bool NextCount(const char* expected, int& count);
  /// Sets the problem, at the line that was read last. Always false.
  bool Refuse(const std::string& reason);

 private:
  DataLineReader lines_;
  ReadProblem& problem_;
};

}  // namespace lipvane
