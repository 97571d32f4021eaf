#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "lipvane/formats/read_problem.h"

/// Lines and words of timing files: blanks are spaces and tabs, and one is as good as many.
namespace lipvane::speech {

/// Without the white space around it, line ends included.
std::string_view Trim(std::string_view text);

/// Cuts the first word off, and the blanks before and behind it. Empty when there is none.
std::string_view TakeWord(std::string_view& text);
/// The same for the last word.
std::string_view TakeLastWord(std::string_view& text);

/// The whole number of 32 bits that a word is, or nothing.
std::optional<int> WholeNumber(std::string_view word);

/// Goes through the lines of a text.
class Lines {
 public:
  explicit Lines(std::string_view text) : rest_(text) {}

  /// The next line, trimmed. False at the end.
  bool Next(std::string_view& line);
  /// The next one that holds more than white space.
  bool NextFilled(std::string_view& line);
  /// Of the line that was given last, counted from 1; of the text's last one at the end.
  int LineNumber() const { return number_; }

 private:
  std::string_view rest_;
  int number_ = 0;
};

/// Sets the problem; answers false, so that a reader can return it.
bool Refuse(ReadProblem& problem, int line, std::string reason);

}  // namespace lipvane::speech
