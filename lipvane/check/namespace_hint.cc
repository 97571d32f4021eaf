#include "lipvane/check/namespace_hint.h"

#include <algorithm>
#include <cstddef>

#include "lipvane/host/standalone/namespaces.h"
#include "lipvane/text/printable.h"

namespace lipvane::check {

std::string NamespaceHint(const standalone::Scene& scene, const std::vector<std::string>& bones) {
  constexpr std::size_t kMostNamed = 5;
  const std::vector<std::string> whole = standalone::NamespacesWithAll(scene, bones);
  if (whole.empty()) return {};
  std::string hint = whole.size() == 1 ? "all are in the namespace " : "all are in the namespaces ";
  for (std::size_t i = 0; i < std::min(whole.size(), kMostNamed); ++i)
    hint += (i > 0 ? ", " : "") + text::QuotedLine(whole[i]);
  if (whole.size() > kMostNamed) hint += " and more";
  return hint + ": give --namespace " + text::PrintableLine(whole.front());
}

std::string ReferencesHint(const standalone::Scene& scene) {
  if (scene.References().empty()) return {};
  return "if the joints are in a referenced file, bake onto that file with -o FILE.mel and source "
         "the script in the open shot";
}

std::string ElsewhereHint(const standalone::Scene& scene, const std::vector<std::string>& bones) {
  const std::string hint = NamespaceHint(scene, bones);
  return hint.empty() ? ReferencesHint(scene) : hint;
}

}  // namespace lipvane::check
