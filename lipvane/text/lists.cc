#include "lipvane/text/lists.h"

#include <algorithm>

namespace lipvane::text {

std::string Listed(const std::vector<std::string>& names, std::size_t most) {
  std::string list;
  for (std::size_t i = 0; i < std::min(names.size(), most); ++i)
    list += (i == 0 ? "" : ", ") + names[i];
  if (names.size() > most) list += " and " + std::to_string(names.size() - most) + " more";
  return list;
}

std::string JoinedNames(const std::vector<std::string>& names) {
  std::string joined;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (i > 0) joined += i + 1 < names.size() ? ", " : " and ";
    joined += names[i];
  }
  return joined;
}

std::string Counted(long long count, const char* singular, const char* plural) {
  return std::to_string(count) + " " + (count == 1 ? singular : plural);
}

}  // namespace lipvane::text
