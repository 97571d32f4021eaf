#include "lipvane/host/standalone/namespaces.h"

#include <cstddef>
#include <map>

namespace lipvane::standalone {
namespace {

/// Namespaces that one name is looked for in. Real ones nest twice or thrice.
constexpr int kMostColons = 16;

bool IsWithin(std::string_view name, const std::string& nameSpace) {
  return name.size() > nameSpace.size() && name[nameSpace.size()] == ':' &&
         name.substr(0, nameSpace.size()) == nameSpace;
}

/// The namespaces that a name is in, and what it is within each.
template <typename Visit>
void ForEachNamespace(std::string_view name, const Visit& visit) {
  std::size_t colon = name.find(':');
  for (int i = 0; i < kMostColons && colon != std::string_view::npos; ++i) {
    visit(name.substr(0, colon), name.substr(colon + 1));
    colon = name.find(':', colon + 1);
  }
}

}  // namespace

std::string RelativeName(const Scene& scene, NodeId node, const std::string& nameSpace) {
  const std::string& name = scene.Name(node);
  if (nameSpace.empty() || scene.Kind(node) == NodeKind::kWorld) return name;
  return IsWithin(name, nameSpace) ? name.substr(nameSpace.size() + 1) : ":" + name;
}

std::set<std::string> NamespacesOf(const Scene& scene) {
  std::set<std::string> there;
  for (NodeId node = 0; node < scene.NodeCount(); ++node) {
    ForEachNamespace(scene.Name(node), [&](std::string_view nameSpace, std::string_view) {
      there.emplace(nameSpace);
    });
  }
  return there;
}

std::vector<std::string> NamespacesWithAll(const Scene& scene,
                                           const std::vector<std::string>& names) {
  const std::set<std::string_view> wanted(names.begin(), names.end());
  std::map<std::string_view, std::set<std::string_view>> found;
  for (NodeId node = 0; node < scene.NodeCount(); ++node) {
    ForEachNamespace(scene.Name(node), [&](std::string_view nameSpace, std::string_view name) {
      const auto bone = wanted.find(name);
      if (bone != wanted.end()) found[nameSpace].insert(*bone);
    });
  }
  std::vector<std::string> whole;
  for (const auto& [nameSpace, bones] : found) {
    if (bones.size() == wanted.size()) whole.emplace_back(nameSpace);
  }
  return whole;
}

}  // namespace lipvane::standalone
