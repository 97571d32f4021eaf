#include "lipvane/host/standalone/ma_tokens.h"

#include <algorithm>

#include "lipvane/host/standalone/ma_statements.h"

namespace lipvane::standalone {
namespace {

constexpr std::size_t kNpos = std::string_view::npos;

std::string Unescaped(std::string_view text, const CodePage& page) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t width = page.QuotedWidth(text, i);
    if (text[i] != '\\' || i + 1 == text.size()) {
      result += text.substr(i, std::min<std::size_t>(width, 2));
    } else {
      const char c = text[i + 1];
      result += c == 'n' ? '\n' : c == 't' ? '\t' : c == 'r' ? '\r' : c;
    }
    i += width;
  }
  return result;
}

/// What stands for the character behind a backslash; 0 when it needs none.
char EscapeLetter(char c) {
  switch (c) {
    case '\n':
      return 'n';
    case '\t':
      return 't';
    case '\r':
      return 'r';
    case '"':
    case '\\':
      return c;
    default:
      return 0;
  }
}

/// Is there a backslash before the byte at `i` when it is written?
bool IsEscaped(std::string_view text, std::size_t i, const CodePage& page) {
  if (i >= text.size()) return false;
  if (EscapeLetter(text[i]) != 0) return true;
  if (i + 1 == text.size() || EscapeLetter(text[i + 1]) == 0) return false;
  // The first half of a character, without the other one, would take the next backslash for it.
  return page.Width(text, i) == 1 && page.Width(std::string{text[i], '\\'}, 0) == 2;
}

/// Does a word end before this place? A comment may touch it.
bool EndsWord(std::string_view text, std::size_t i) {
  const char c = text[i];
  if (c > '/') return false;  // nearly all
  if (c == '/') return i + 1 < text.size() && (text[i + 1] == '/' || text[i + 1] == '*');
  return c == ' ' || (c >= '\t' && c <= '\r') || c == '"' || c == '(';
}

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

}  // namespace

bool Token::IsFlag() const {
  return kind == Kind::kWord && text.size() > 1 && text[0] == '-' && IsLetter(text[1]) &&
         text.substr(0, 4) != "-inf" && text.substr(0, 4) != "-nan";
}

Token TokenReader::Next() {
  position_ = std::min(SkipBlank(statement_, position_), statement_.size());
  if (position_ == statement_.size()) return {};
  if (statement_[position_] == '"') return ReadString();
  if (statement_[position_] == '(') return ReadParentheses();
  std::size_t end = position_ + 1;
  while (end < statement_.size() && !EndsWord(statement_, end))
    ++end;
  const std::string_view text = statement_.substr(position_, end - position_);
  position_ = end;
  return {Token::Kind::kWord, text};
}

Token TokenReader::Peek() {
  const std::size_t position = position_;
  const Token token = Next();
  position_ = position;
  return token;
}

Token TokenReader::ReadString() {
  const std::size_t begin = position_ + 1;
  const std::size_t behind = SkipString(statement_, position_, page_);
  const std::size_t end = behind == kNpos ? statement_.size() : behind - 1;
  position_ = std::min(behind, statement_.size());
  const std::string_view text = statement_.substr(begin, end - begin);
  if (text.find('\\') == kNpos) return {Token::Kind::kString, text};
  made_.push_back(Unescaped(text, page_));
  return {Token::Kind::kString, made_.back()};
}

Token TokenReader::ReadParentheses() {
  const std::size_t begin = position_;
  std::string joined;
  bool isJoin = true;
  std::size_t depth = 0;
  while (position_ < statement_.size()) {
    const std::size_t at = SkipBlank(statement_, position_);
    if (at == kNpos || at >= statement_.size()) break;
    position_ = at;
    const char c = statement_[position_];
    if (c == '"') {
      joined += ReadString().text;
      continue;
    }
    ++position_;
    if (c == '(') {
      ++depth;
    } else if (c == ')') {
      if (--depth == 0) break;
    } else if (c != '+') {
      isJoin = false;
    }
  }
  if (!isJoin) return {Token::Kind::kExpression, statement_.substr(begin, position_ - begin)};
  made_.push_back(std::move(joined));
  return {Token::Kind::kString, made_.back()};
}

std::string Quoted(std::string_view text, const CodePage& page, bool doubleAll) {
  std::string result = "\"";
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (page.Width(text, i) == 2) {
      result += text.substr(i, 2);
      ++i;
      // A backslash behind it would make its own look doubled.
      if (text[i] == '\\' && (doubleAll || IsEscaped(text, i + 1, page))) result += '\\';
      continue;
    }
    if (IsEscaped(text, i, page)) result += '\\';
    const char letter = EscapeLetter(text[i]);
    result += letter == 0 ? text[i] : letter;
  }
  return result += '"';
}

}  // namespace lipvane::standalone
