#include "lipvane/check/words.h"

#include <algorithm>
#include <cmath>

#include "lipvane/text/numbers.h"

namespace lipvane::check {
namespace {

constexpr std::size_t kLongestQuote = 60;

bool IsContinuation(char c) {
  return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

bool IsControl(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 0x20 || byte == 0x7F;
}

}  // namespace

void SplitWords(std::string_view line, std::vector<std::string_view>& words) {
  words.clear();
  while (true) {
    line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
    if (line.empty()) return;
    const std::size_t end = std::min(line.find(' '), line.size());
    words.push_back(line.substr(0, end));
    line.remove_prefix(end);
  }
}

std::optional<std::size_t> WordsBeforeDoubledBlank(std::string_view line) {
  while (!line.empty() && line.back() == ' ')
    line.remove_suffix(1);
  std::size_t words = 0;
  bool afterBlank = true;
  for (const char c : line) {
    const bool isBlank = c == ' ';
    if (isBlank && afterBlank) return words;
    if (isBlank) ++words;
    afterBlank = isBlank;
  }
  return std::nullopt;
}

bool IsPlainCount(std::string_view line) {
  std::vector<std::string_view> words;
  SplitWords(line, words);
  return words.size() == 1 &&
         std::all_of(words[0].begin(), words[0].end(), [](char c) { return c >= '0' && c <= '9'; });
}

std::string Quoted(std::string_view text) {
  std::size_t length = text.size();
  if (length > kLongestQuote) {
    length = kLongestQuote;
    // Not within a character of several bytes.
    while (length > 0 && IsContinuation(text[length]))
      --length;
  }
  std::string quoted = "\"" + std::string(text.substr(0, length));
  std::replace_if(quoted.begin(), quoted.end(), IsControl, '?');
  return quoted + (length < text.size() ? "...\"" : "\"");
}

std::optional<std::string> NumberProblem(std::string_view word, double limit) {
  const std::optional<double> whole = text::WholeReal(word);
  if (whole && std::abs(*whole) <= limit) return std::nullopt;
  const double read = text::RealPrefix(word);
  return Quoted(word) + " is no finite number and read as " +
         (std::abs(read) <= limit ? text::ExactReal(read) : "infinite");
}

std::string Counted(long long count, const char* singular, const char* plural) {
  return std::to_string(count) + " " + (count == 1 ? singular : plural);
}

}  // namespace lipvane::check
