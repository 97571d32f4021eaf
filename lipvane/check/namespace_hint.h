#pragma once

#include <string>
#include <vector>

#include "lipvane/host/standalone/scene.h"

namespace lipvane::check {

/// For bones of which a scene has none by their plain names: `all are in the namespace "hero": give
/// --namespace hero`. Empty when no namespace has all of them.
std::string NamespaceHint(const standalone::Scene& scene, const std::vector<std::string>& bones);

/// Where the joints of a rig may be that a scene has not: in files that it references. Empty when
/// it references none.
std::string ReferencesHint(const standalone::Scene& scene);

/// The one or, when it is empty, the other.
std::string ElsewhereHint(const standalone::Scene& scene, const std::vector<std::string>& bones);

}  // namespace lipvane::check
