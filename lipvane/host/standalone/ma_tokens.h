#pragma once

#include <cstddef>
#include <list>
#include <string>
#include <string_view>

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
  explicit TokenReader(std::string_view statement) : statement_(statement) {}
  TokenReader(const TokenReader&) = delete;
  TokenReader& operator=(const TokenReader&) = delete;

  Token Next();
  /// The next one, which stays.
  Token Peek();

 private:
  Token ReadString();
  Token ReadParentheses();

  std::string_view statement_;
  std::size_t position_ = 0;
  std::list<std::string> made_;  // texts that differ from what stands in the statement
};

/// A text between double quotes, with what must be escaped.
std::string Quoted(std::string_view text);

}  // namespace lipvane::standalone
