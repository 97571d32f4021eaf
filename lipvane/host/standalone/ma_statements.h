#pragma once

#include <cstddef>
#include <stdexcept>
#include <string_view>

#include "lipvane/host/standalone/code_page.h"

namespace lipvane::standalone {

/// A place where a text stops being a script, and why.
class ScanError : public std::runtime_error {
 public:
  ScanError(std::size_t offset, const char* reason) : std::runtime_error(reason), offset_(offset) {}
  std::size_t offset() const { return offset_; }

 private:
  std::size_t offset_;
};

/// One statement of a script. Comments inside it are part of its text.
struct Statement {
  std::size_t begin = 0;
  std::size_t end = 0;    ///< behind the ';'
  std::string_view text;  ///< without the ';'
};

/// Finds the statements of a script in one pass, without looking into them.
class StatementScanner {
 public:
  /// `source` must outlive the scanner. A byte order mark is passed over.
  explicit StatementScanner(std::string_view source);

  /// The next statement; false at the end. Throws ScanError when the text ends inside a statement,
  /// a string or a comment.
  bool Next(Statement& statement);
  /// Behind the last statement found.
  std::size_t Position() const { return position_; }

 private:
  std::string_view source_;
  std::size_t position_ = 0;
  CodePage page_;
};

/// The place behind a string that opens at `begin`; npos when it is not closed on its line.
std::size_t SkipString(std::string_view text, std::size_t begin, const CodePage& page);

/// The place behind white space and comments; npos when a comment is not closed.
std::size_t SkipBlank(std::string_view text, std::size_t begin);

/// Counts lines on the way forward through a text.
class LineCounter {
 public:
  explicit LineCounter(std::string_view source) : source_(source) {}
  /// The line of an offset, from 1. Linear in all for offsets that ascend.
  std::size_t LineOf(std::size_t offset);

 private:
  std::string_view source_;
  std::size_t offset_ = 0;
  std::size_t line_ = 1;
};

}  // namespace lipvane::standalone
