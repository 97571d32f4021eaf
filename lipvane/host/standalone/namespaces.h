#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "lipvane/host/standalone/scene.h"

/// Namespaces, which a node's name begins with: the joints of a rig that was imported or referenced
/// as "hero" are hero:jaw and so on; namespaces nest (shot:hero:jaw).
namespace lipvane::standalone {

/// A node's name as it is within a namespace ("" for the root): "jaw" for hero:jaw in hero, ":jaw"
/// for the jaw outside. The world is the world everywhere.
std::string RelativeName(const Scene& scene, NodeId node, const std::string& nameSpace);

/// The namespaces that nodes of the scene are in, but for the root.
std::set<std::string> NamespacesOf(const Scene& scene);

/// The namespaces that hold a node of every one of these names, in alphabetical order; none for no
/// names.
std::vector<std::string> NamespacesWithAll(const Scene& scene,
                                           const std::vector<std::string>& names);

}  // namespace lipvane::standalone
