#include "lipvane/host/standalone/name_pattern.h"

#include <algorithm>
#include <cstddef>

namespace lipvane::standalone {
namespace {

bool MatchesWildcards(std::string_view pattern, std::string_view name) {
  std::size_t p = 0;
  std::size_t n = 0;
  // Where to go on from when the last star has to stand for one character more. Earlier stars
  // need no second try: they end where their namespace ends, or at the first fit.
  std::size_t star = std::string_view::npos;
  std::size_t starName = 0;
  while (n < name.size()) {
    if (p < pattern.size() && pattern[p] == '*') {
      star = p++;
      starName = n;
    } else if (p < pattern.size() &&
               (pattern[p] == name[n] || (pattern[p] == '?' && name[n] != ':'))) {
      ++p;
      ++n;
    } else if (star != std::string_view::npos && name[starName] != ':') {
      p = star + 1;
      n = ++starName;
    } else {
      return false;
    }
  }
  while (p < pattern.size() && pattern[p] == '*')
    ++p;
  return p == pattern.size();
}

}  // namespace

NamePattern::NamePattern(std::string_view pattern, const CodePage& page,
                         const std::string& nameSpace) {
  if (!pattern.empty() && pattern.front() == '|') {
    wholePath_ = true;
    pattern.remove_prefix(1);
  }
  for (;;) {
    const std::size_t bar = page.Find(pattern, '|');
    std::string_view part = pattern.substr(0, bar);
    const bool isOfRoot = !part.empty() && part.front() == ':';
    if (isOfRoot) part.remove_prefix(1);
    parts_.emplace_back(isOfRoot || nameSpace.empty() ? "" : nameSpace + ":").append(part);
    if (bar == std::string_view::npos) break;
    pattern.remove_prefix(bar + 1);
  }
}

bool NamePattern::IsPlain() const {
  return std::all_of(parts_.begin(), parts_.end(), [](const std::string& part) {
    return part.find_first_of("*?") == std::string::npos;
  });
}

bool NamePattern::Matches(const Scene& scene, PathId path) const {
  for (auto part = parts_.rbegin(); part != parts_.rend(); ++part) {
    if (path == 0 || !MatchesWildcards(*part, scene.Name(scene.NodeOf(path)))) return false;
    path = scene.ParentPath(path);
  }
  return !wholePath_ || path == 0;
}

}  // namespace lipvane::standalone
