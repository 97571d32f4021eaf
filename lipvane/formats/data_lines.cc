#include "lipvane/formats/data_lines.h"

#include <algorithm>

#include "lipvane/formats/separator_scan.h"
#include "lipvane/text/numbers.h"

namespace lipvane {

std::size_t NextDataLine(std::string_view& remaining, std::string_view& line) {
  const std::size_t lineEnd = remaining.find('\n');
  line = remaining.substr(0, lineEnd);

  std::size_t passed = 0;
  std::size_t next = line.size();
  const auto lineFeedAt = [&](std::size_t i) {
    return i < remaining.size() && remaining[i] == '\n';
  };
  while (true) {
    if (lineFeedAt(next)) {
      next += 1;
    } else if (passed > 0 && next < remaining.size() && remaining[next] == '\r' &&
               lineFeedAt(next + 1)) {
      next += 2;
    } else {
      break;
    }
    ++passed;
  }
  remaining.remove_prefix(next);

  while (!line.empty() && line.back() == '\r')
    line.remove_suffix(1);
  line = line.substr(0, line.find("//"));
  return passed;
}

std::size_t TokenCursor::FindSeparator() const {
  if (separator_.size() != 1) return std::min(remaining_.find(separator_), remaining_.size());
  // Most tokens are of a few bytes: a call of the library's search costs more than it saves.
  const char separator = separator_[0];
  std::size_t i = 0;
  while (i < remaining_.size() && remaining_[i] != separator)
    ++i;
  return i;
}

std::string_view TokenCursor::Next() {
  if (done_) return {};
  const std::size_t found = FindSeparator();
  if (found == 0 || found == remaining_.size()) {
    done_ = true;
    return remaining_;
  }
  const std::string_view token = remaining_.substr(0, found);
  remaining_.remove_prefix(found + separator_.size());
  return token;
}

void TokenCursor::Skip(int count) {
  if (separator_.size() != 1) {
    for (int i = 0; i < count && !done_; ++i)
      Next();
    return;
  }
  // The same in one go.
  const std::size_t behind = BehindSeparators(remaining_, separator_[0], count);
  done_ = done_ || behind == std::string_view::npos;
  remaining_.remove_prefix(done_ ? remaining_.size() : behind);
}

double TokenCursor::NextReal() {
  if (!done_ && separator_.size() == 1) {
    double value = 0.0;
    const std::size_t length = text::PlainDecimal(remaining_, value);
    if (length > 0 && length == remaining_.size()) {
      done_ = true;
      return value;
    }
    if (length > 0 && remaining_[length] == separator_[0]) {
      remaining_.remove_prefix(length + 1);
      return value;
    }
  }
  return text::RealPrefix(Next());
}

std::vector<std::string_view> SplitTokens(std::string_view line, std::string_view separator) {
  std::vector<std::string_view> tokens;
  for (TokenCursor cursor(line, separator); !cursor.Done();)
    tokens.push_back(cursor.Next());
  return tokens;
}

std::vector<std::string_view> SplitTokens(std::string_view line, char separator) {
  return SplitTokens(line, std::string_view(&separator, 1));
}

bool DataLineReader::Next(std::string_view& line) {
  while (!remaining_.empty()) {
    const std::size_t current = nextLineNumber_;
    nextLineNumber_ += NextDataLine(remaining_, line);
    // A comment cut in two at the end of the file must not pass for data.
    const bool cutComment = nextLineNumber_ == current && line == "/";
    if (!line.empty() && !cutComment) {
      lineNumber_ = current;
      return true;
    }
  }
  return false;
}

}  // namespace lipvane
