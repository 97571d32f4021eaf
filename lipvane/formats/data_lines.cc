#include "lipvane/formats/data_lines.h"

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

std::string_view TokenCursor::Next() {
  if (done_) return {};
  const std::size_t found = remaining_.find(separator_);
  if (found == std::string_view::npos || found == 0) {
    done_ = true;
    return remaining_;
  }
  const std::string_view token = remaining_.substr(0, found);
  remaining_.remove_prefix(found + separator_.size());
  return token;
}

void TokenCursor::Skip(int count) {
  for (int i = 0; i < count && !done_; ++i)
    Next();
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
    const bool cutComment = nextLineNumber_ == current && line == "/";
    if (!line.empty() && !cutComment) {
      lineNumber_ = current;
      return true;
    }
  }
  return false;
}

}  // namespace lipvane
