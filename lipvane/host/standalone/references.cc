#include "lipvane/host/standalone/references.h"

#include <algorithm>
#include <cstddef>

#include "lipvane/host/standalone/shown_name.h"

namespace lipvane::standalone {

std::string MissingReferences(const Scene& scene) {
  constexpr std::size_t kMostNamed = 5;
  const std::vector<std::string>& files = scene.References();
  if (files.empty()) return {};
  if (files.size() == 1) {
    return "the nodes of the referenced file \"" + ShownName(files[0]) +
           "\" are missing: it is not read";
  }
  std::string line =
      "the nodes of " + std::to_string(files.size()) + " referenced files are missing: ";
  for (std::size_t i = 0; i < std::min(files.size(), kMostNamed); ++i)
    line += (i > 0 ? ", \"" : "\"") + ShownName(files[i]) + "\"";
  if (files.size() > kMostNamed)
    line += " and " + std::to_string(files.size() - kMostNamed) + " more";
  return line + " are not read";
}

}  // namespace lipvane::standalone
