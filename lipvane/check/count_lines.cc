#include "lipvane/check/count_lines.h"

#include <algorithm>

#include "lipvane/check/words.h"
#include "lipvane/formats/data_lines.h"
#include "lipvane/text/numbers.h"

namespace lipvane::check {
namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

std::string_view WithoutSpace(std::string_view line) {
  line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
  return WithoutTrailingSpace(line);
}

std::string_view WithoutSign(std::string_view count) {
  const bool hasSign = !count.empty() && (count[0] == '+' || count[0] == '-');
  return count.substr(hasSign ? 1 : 0);
}

int Read(std::string_view line) {
  return text::IntegerPrefix(TokenCursor(line, " ").Next());
}

/// Digits and nothing else but a plus before them and white space around them.
bool IsPlainCount(std::string_view line) {
  const std::string_view count = WithoutSpace(line);
  const std::string_view digits = WithoutSign(count);
  return !digits.empty() && count[0] != '-' && std::all_of(digits.begin(), digits.end(), IsDigit);
}

}  // namespace

int CountOn(std::string_view line) {
  return std::max(0, Read(line));
}

bool HasCount(std::string_view line) {
  const std::string_view digits = WithoutSign(WithoutSpace(line));
  return !digits.empty() && IsDigit(digits[0]);
}

bool IsNegativeCount(std::string_view line) {
  return Read(line) < 0;
}

std::string ShownCount(std::string_view line) {
  const int count = Read(line);
  return std::to_string(count) + (count < 0 ? " (read as 0)" : "");
}

bool CheckCountLine(const DataLine& line, const std::string& what, const std::string& hint,
                    Recorder& recorder) {
  if (!HasCount(line.text)) {
    recorder.Add(line.number, rule::kCountMissing,
                 what + " is missing: this line, " + Quoted(line.text) + ", is read as 0" + hint);
    return false;
  }
  if (!IsPlainCount(line.text)) {
    recorder.Add(line.number, rule::kCountText,
                 what + ", " + Quoted(line.text) + ", is no plain whole number and read as " +
                     std::to_string(CountOn(line.text)));
  }
  return true;
}

}  // namespace lipvane::check
