#include "lipvane/host/standalone/ma_statements.h"

#include <algorithm>

#include "lipvane/text/byte_search.h"

namespace lipvane::standalone {
namespace {

constexpr std::size_t kNpos = std::string_view::npos;

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v' || c == '\0';
}

/// The place behind a comment that opens at `begin`, `begin` when none does, npos when it is open.
std::size_t SkipComment(std::string_view text, std::size_t begin) {
  if (text.substr(begin, 2) == "//") return text::FindAny<'\r', '\n'>(text, begin);
  if (text.substr(begin, 2) != "/*") return begin;
  const std::size_t close = text.find("*/", begin + 2);
  return close == kNpos ? kNpos : close + 2;
}

}  // namespace

std::size_t SkipString(std::string_view text, std::size_t begin, const CodePage& page) {
  std::size_t i = begin + 1;
  while (i < text.size()) {
    // Where every byte is a character, what lies before these needs no look.
    if (!page.IsDoubleByte()) i = text::FindAny<'"', '\\', '\n', '\r'>(text, i);
    if (i == text.size()) break;
    if (text[i] == '"') return i + 1;
    if (text[i] == '\n' || text[i] == '\r') return kNpos;
    i += page.QuotedWidth(text, i);
  }
  return kNpos;
}

std::size_t SkipBlank(std::string_view text, std::size_t begin) {
  while (begin < text.size()) {
    if (IsBlank(text[begin])) {
      ++begin;
      continue;
    }
    if (text[begin] != '/') return begin;  // nearly always
    const std::size_t behind = SkipComment(text, begin);
    if (behind == begin || behind == kNpos) return behind;
    begin = behind;
  }
  return begin;
}

StatementScanner::StatementScanner(std::string_view source)
    : source_(source), page_(CodePage::OfScene(source)) {
  if (source.substr(0, 3) == "\xEF\xBB\xBF") position_ = 3;
}

bool StatementScanner::Next(Statement& statement) {
  std::size_t i = position_;
  for (;; ++i) {
    const std::size_t begin = SkipBlank(source_, i);
    if (begin == kNpos) throw ScanError(i, "a comment is not closed");
    i = begin;
    if (i >= source_.size()) return false;
    // Braces of scripts written by hand: what stands in a block is read as if it stood outside.
    if (source_[i] != ';' && source_[i] != '{' && source_[i] != '}') break;
    position_ = i + 1;
  }
  const std::size_t begin = i;
  // Nearly all of a large scene are the numbers of its meshes: this loop decides how long it takes
  // to open, and goes from one byte that matters to the next.
  while ((i = text::FindAny<';', '"', '/'>(source_, i)) < source_.size()) {
    if (source_[i] == ';') {
      statement.begin = begin;
      statement.end = position_ = i + 1;
      statement.text = source_.substr(begin, i - begin);
      return true;
    } else if (source_[i] == '"') {
      const std::size_t behind = SkipString(source_, i, page_);
      if (behind == kNpos) throw ScanError(i, "a string is not closed on its line");
      i = behind;
    } else {
      const std::size_t behind = SkipComment(source_, i);
      if (behind == kNpos) throw ScanError(i, "a comment is not closed");
      i = behind == i ? i + 1 : behind;
    }
  }
  throw ScanError(begin, "the file ends inside a statement");
}

std::size_t LineCounter::LineOf(std::size_t offset) {
  offset = std::min(offset, source_.size());
  if (offset < offset_) {
    offset_ = 0;
    line_ = 1;
  }
  const std::string_view before = source_.substr(0, offset);
  while ((offset_ = text::FindAny<'\n', '\r'>(before, offset_)) < offset) {
    const bool isPaired = source_.substr(offset_, 2) == "\r\n";
    if (!isPaired) ++line_;
    ++offset_;
  }
  return line_;
}

}  // namespace lipvane::standalone
