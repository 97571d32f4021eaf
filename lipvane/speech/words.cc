#include "lipvane/speech/words.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <string>
#include <utility>

namespace lipvane::speech {
namespace {

constexpr char kWhiteSpace[] = " \t\r\n\f\v";

}  // namespace

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kWhiteSpace);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kWhiteSpace) - first + 1);
}

std::string_view TakeWord(std::string_view& text) {
  text = Trim(text);
  const std::string_view word = text.substr(0, text.find_first_of(kWhiteSpace));
  text = Trim(text.substr(word.size()));
  return word;
}

std::string_view TakeLastWord(std::string_view& text) {
  text = Trim(text);
  const std::size_t before = text.find_last_of(kWhiteSpace);
  const std::string_view word = before == std::string_view::npos ? text : text.substr(before + 1);
  text = Trim(text.substr(0, text.size() - word.size()));
  return word;
}

std::optional<int> WholeNumber(std::string_view word) {
  int number = 0;
  const char* const end = word.data() + word.size();
  const auto [rest, error] = std::from_chars(word.data(), end, number);
  if (error != std::errc() || rest != end) return std::nullopt;
  return number;
}

bool Lines::Next(std::string_view& line) {
  if (rest_.empty()) return false;
  const std::size_t end = rest_.find('\n');
  line = Trim(rest_.substr(0, end));
  rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
  ++number_;
  return true;
}

bool Lines::NextFilled(std::string_view& line) {
  while (Next(line)) {
    if (!line.empty()) return true;
  }
  return false;
}

bool Refuse(ReadProblem& problem, int line, std::string reason) {
  problem.line = line;
  problem.reason = std::move(reason);
  return false;
}

}  // namespace lipvane::speech
