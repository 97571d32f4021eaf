#pragma once

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

/// Lines and tokens as every one of our text files has them: "//" begins a comment, empty lines
/// mean nothing, tokens stand between single separators. Nothing is copied: lines and tokens are
/// views into the text, which has to live as long.
namespace lipvane {

/// Takes one line off `remaining`: the text before the first "//" or line feed, or all of it. What
/// remains starts after that line feed and those that follow it directly. A carriage return before
/// the line feed is no part of the line, but one before that is. Returns how many line feeds were
/// passed.
std::size_t NextDataLine(std::string_view& remaining, std::string_view& line);

/// Goes through the tokens of a line. A separator at the very start of what is left ends the
/// splitting: the rest is one token, so two separators in a row join all that follows. A trailing
/// separator gives an empty last token; an empty line is one empty token.
class TokenCursor {
 public:
  TokenCursor(std::string_view line, std::string_view separator)
      : line_(line), separator_(separator) {}

  /// The next token; the empty text when there is none.
  std::string_view Next();
  void Skip(int count);
  /// RealPrefix of the next token.
  float NextFloat() { return NextFloats<1>()[0]; }
  /// The same of several.
  template <std::size_t count>
  std::array<float, count> NextFloats() {
    std::array<float, count> values{};
    ReadFloats(values.data(), count);
    return values;
  }
  bool Done() const { return done_; }

 private:
  /// The place of the next separator; the end of the line when there is none.
  std::size_t FindSeparator() const;
  /// Skips many at a look. False, with nothing done, when the tokens may end before.
  bool SkipByBlocks(int count);
  void ReadFloats(float* values, std::size_t count);
  /// Reads those that one look finds; answers how many.
  std::size_t ReadFloatsInSight(float* values, std::size_t count);

  std::string_view line_;
  std::string_view separator_;
  std::size_t place_ = 0;  ///< where the next token starts
  bool done_ = false;
};

/// All tokens of a line, by the rules of the cursor.
std::vector<std::string_view> SplitTokens(std::string_view line, std::string_view separator);
std::vector<std::string_view> SplitTokens(std::string_view line, char separator);

/// Gives the lines of a text that hold data, and where they stand.
class DataLineReader {
 public:
  explicit DataLineReader(std::string_view text) : remaining_(text) {}

  /// The next line that is not empty (blanks alone are not empty, nor is half of a comment mark
  /// that the text ends in). False at the end of the text.
  bool Next(std::string_view& line);
  /// The number, from 1, of the line that `Next` gave last; 0 before the first.
  std::size_t LineNumber() const { return lineNumber_; }

 private:
  std::string_view remaining_;
  std::size_t lineNumber_ = 0;
  std::size_t nextLineNumber_ = 1;
};

}  // namespace lipvane
