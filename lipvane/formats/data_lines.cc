#include "lipvane/formats/data_lines.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "lipvane/text/byte_search.h"
#include "lipvane/text/numbers.h"
#include "lipvane/text/short_decimal.h"

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

  // Just one: it belongs to the line's end, any before it to the text.
  if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
  line = line.substr(0, line.find("//"));
  return passed;
}

std::size_t TokenCursor::FindSeparator() const {
  if (separator_.size() != 1) return std::min(line_.find(separator_, place_), line_.size());
  // Most tokens are of a few bytes: a call of the library's search costs more than it saves.
  const char separator = separator_[0];
  std::size_t i = place_;
  while (i < line_.size() && line_[i] != separator)
    ++i;
  return i;
}

std::string_view TokenCursor::Next() {
  if (done_) return {};
  const std::size_t begin = place_;
  std::size_t end = FindSeparator();
  if (end == begin || end == line_.size()) {
    done_ = true;
    end = line_.size();
  }
  place_ = end + separator_.size();
  return {line_.data() + begin, end - begin};
}

bool TokenCursor::SkipByBlocks(int count) {
  std::uint64_t atTokenStart = 1;
  for (std::size_t place = place_; place < line_.size(); place += text::kWideBlock) {
    const std::uint64_t found = text::PlacesOf(separator_[0], line_, place);
    if ((found & (found << 1U | atTokenStart)) != 0) return false;
    const int here = text::CountOf(found);
    if (here >= count) {
      place_ = place + text::PlaceOfBit(found, count) + 1;
      return true;
    }
    count -= here;
    atTokenStart = found >> (text::kWideBlock - 1);
  }
  return false;
}

void TokenCursor::Skip(int count) {
  if (count > 0 && !done_ && separator_.size() == 1 && SkipByBlocks(count)) return;
  for (; count > 0 && !done_; --count)
    Next();
}

std::size_t TokenCursor::ReadFloatsInSight(float* values, std::size_t count) {
  // The bytes that are loaded with a number must be the line's.
  if (done_ || separator_.size() != 1 || place_ < text::kLongestShortDecimal) return 0;
  const char* const line = line_.data();
  const std::size_t begin = place_;
  std::uint64_t ends = text::PlacesOf(separator_[0], line_, begin);
  const std::size_t left = line_.size() - begin;
  if (left < text::kWideBlock) ends |= std::uint64_t{1} << left;
  std::size_t start = begin;
  std::size_t read = 0;
  for (; read < count && ends != 0; ends &= ends - 1) {
    const std::size_t end = begin + text::LowestBit(ends);
    if (end == start) break;
    double value = 0.0;
    if (!text::ReadShortDecimal(line + end, end - start, value)) {
      value = text::RealPrefix({line + start, end - start});
    }
    values[read++] = static_cast<float>(value);
    start = end + 1;
  }
  place_ = start;
  done_ = start > line_.size();
  return read;
}

void TokenCursor::ReadFloats(float* values, std::size_t count) {
  for (std::size_t i = ReadFloatsInSight(values, count); i < count; ++i)
    values[i] = static_cast<float>(text::RealPrefix(Next()));
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
    if (!line.empty()) {
      lineNumber_ = current;
      return true;
    }
  }
  return false;
}

}  // namespace lipvane
