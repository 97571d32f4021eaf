#pragma once

#include <cstddef>
#include <list>
#include <string>
#include <string_view>

#include "lipvane/host/standalone/code_page.h"

namespace lipvane::standalone {

/// One word of a statement.
struct Token {
  enum class Kind {
    kEnd,
    kWord,
    kString,      ///< `text` without quotes, escapes resolved, ("a" + "b") joined
    kExpression,  ///< anything else in parentheses, as it stands
  };
  Kind kind = Kind::kEnd;
  std::string_view text;

  /// A word such as -type; a number is none, nor is -inf.
  bool IsFlag() const;
};

/// The words of one statement, one after the other. Texts live as long as the statement and this.
class TokenReader {
 public:
  explicit TokenReader(std::string_view statement, CodePage page = {})
      : statement_(statement), page_(page) {}
  TokenReader(const TokenReader&) = delete;
  TokenReader& operator=(const TokenReader&) = delete;

  Token Next();
  /// The next one, which stays.
  Token Peek();
  /// In the statement, behind the last one.
  std::size_t Position() const { return position_; }

 private:
  Token ReadString();
  Token ReadParentheses();

  std::string_view statement_;
  CodePage page_;
  std::size_t position_ = 0;
  std::list<std::string> made_;  // texts that differ from what stands in the statement
};

/// A text between double quotes, with what must be escaped. `doubleAll` doubles also the backslash
/// that a character of two bytes ends in.
std::string Quoted(std::string_view text, const CodePage& page = {}, bool doubleAll = false);

}  // namespace lipvane::standalone
