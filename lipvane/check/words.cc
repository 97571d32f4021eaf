#include "lipvane/check/words.h"

#include <algorithm>
#include <cmath>

#include "lipvane/text/numbers.h"
#include "lipvane/text/printable.h"

namespace lipvane::check {
namespace {

constexpr std::size_t kLongestQuote = 60;
constexpr std::string_view kSpace = " \t\r";

}  // namespace

void SplitWords(std::string_view line, std::vector<std::string_view>& words,
                std::string_view separators) {
  words.clear();
  while (true) {
    line.remove_prefix(std::min(line.find_first_not_of(separators), line.size()));
    if (line.empty()) return;
    const std::size_t end = std::min(line.find_first_of(separators), line.size());
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

std::string_view WithoutTrailingSpace(std::string_view line) {
  return line.substr(0, line.find_last_not_of(kSpace) + 1);
}

bool IsBlank(std::string_view text) {
  return text.find_first_not_of(kSpace) == std::string_view::npos;
}

bool HasTab(std::string_view text) {
  return text.find('\t') != std::string_view::npos;
}

bool IsNumber(std::string_view word) {
  return text::FiniteReal(word).has_value();
}

std::string Quoted(std::string_view text) {
  return text::Quoted(text, kLongestQuote);
}

std::optional<std::string> NumberProblem(std::string_view word, double limit) {
  const std::optional<double> whole = text::WholeReal(word);
  if (whole && std::abs(*whole) <= limit) return std::nullopt;
  const double read = text::RealPrefix(word);
  return Quoted(word) + " is no finite number and read as " +
         (std::abs(read) <= limit ? text::ExactReal(read) : "infinite");
}

}  // namespace lipvane::check
