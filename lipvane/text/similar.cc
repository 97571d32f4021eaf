#include "lipvane/text/similar.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "lipvane/text/printable.h"

namespace lipvane::text {
namespace {

constexpr std::size_t kMostSlips = 3;

char Small(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// The edit distance in which swapping two neighbours is one step. Both are of bounded length.
std::size_t Slips(std::string_view a, std::string_view b) {
  using Row = std::array<std::size_t, kLongestCompared + 1>;
  Row before{};
  Row above{};
  Row row{};
  for (std::size_t j = 0; j <= b.size(); ++j)
    row[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    before = above;
    above = row;
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const auto same = [&](std::size_t m, std::size_t n) { return Small(a[m]) == Small(b[n]); };
      const std::size_t changed = above[j - 1] + (same(i - 1, j - 1) ? 0 : 1);
      row[j] = std::min({above[j] + 1, row[j - 1] + 1, changed});
      if (i > 1 && j > 1 && same(i - 1, j - 2) && same(i - 2, j - 1)) {
        row[j] = std::min(row[j], before[j - 2] + 1);
      }
    }
  }
  return row[b.size()];
}

}  // namespace

std::optional<std::string> Nearest(std::string_view word,
                                   const std::vector<std::string>& candidates) {
  std::optional<std::string> nearest;
  if (word.size() > kLongestCompared) return nearest;
  std::size_t fewest = std::min(word.size() / 3, kMostSlips) + 1;
  for (const std::string& candidate : candidates) {
    if (candidate.size() > kLongestCompared) continue;
    if (std::max(candidate.size(), word.size()) - std::min(candidate.size(), word.size()) >= fewest)
      continue;
    const std::size_t slips = Slips(word, candidate);
    if (slips >= fewest) continue;
    fewest = slips;
    nearest = candidate;
  }
  return nearest;
}

std::string DidYouMean(std::string_view word, const std::vector<std::string>& candidates) {
  const auto nearest = Nearest(word, candidates);
  return nearest ? "; did you mean " + QuotedLine(*nearest) + "?" : std::string();
}

}  // namespace lipvane::text
