#include "lipvane/host/standalone/ma_statements.h"

#include <algorithm>
#include <array>

namespace lipvane::standalone {
namespace {

constexpr std::size_t kNpos = std::string_view::npos;

std::size_t Code(char c) {
  return static_cast<unsigned char>(c);
}

/// The bytes at which a statement must be looked at more closely.
constexpr std::array<bool, 256> MakeStops() {
  std::array<bool, 256> stops{};
  stops[std::size_t{';'}] = true;
  stops[std::size_t{'"'}] = true;
  stops[std::size_t{'/'}] = true;
  return stops;
}
constexpr std::array<bool, 256> kStops = MakeStops();

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v' || c == '\0';
}

/// The place behind a comment that opens at `begin`, `begin` when none does, npos when it is open.
std::size_t SkipComment(std::string_view text, std::size_t begin) {
  if (text.substr(begin, 2) == "//")
    return std::min(text.find_first_of("\r\n", begin), text.size());
  if (text.substr(begin, 2) != "/*") return begin;
  const std::size_t close = text.find("*/", begin + 2);
  return close == kNpos ? kNpos : close + 2;
}

}  // namespace

std::size_t SkipString(std::string_view text, std::size_t begin, const CodePage& page) {
  for (std::size_t i = begin + 1; i < text.size(); i += page.QuotedWidth(text, i)) {
    if (text[i] == '"') return i + 1;
    if (text[i] == '\n' || text[i] == '\r') return kNpos;
  }
  return kNpos;
}

std::size_t SkipBlank(std::string_view text, std::size_t begin) {
  while (begin < text.size()) {
    if (IsBlank(text[begin])) {
      ++begin;
      continue;
    }
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
  while (i < source_.size()) {
    if (!kStops[Code(source_[i])]) {
      ++i;
    } else if (source_[i] == ';') {
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
  for (; offset_ < offset; ++offset_) {
    const char c = source_[offset_];
    const bool paired = c == '\r' && offset_ + 1 < source_.size() && source_[offset_ + 1] == '\n';
    if (c == '\n' || (c == '\r' && !paired)) ++line_;
  }
  return line_;
}

}  // namespace lipvane::standalone
