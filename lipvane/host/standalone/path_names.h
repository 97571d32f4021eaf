#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "lipvane/host/standalone/hierarchy.h"
#include "lipvane/host/standalone/scene_data.h"

namespace lipvane::standalone {

std::string FullPathOf(const SceneData& data, const Hierarchy& hierarchy, std::size_t path);

/// The same for a message: of a path beyond kMaxShownPath the end, behind "...".
std::string ShownPathOf(const SceneData& data, const Hierarchy& hierarchy, std::size_t path);

/// The place of each path when all are sorted by the bytes of their full paths, which are not made.
std::vector<std::uint32_t> PathRanks(const SceneData& data, const Hierarchy& hierarchy);

/// The end of the path that no other path has; all of it when very many share its name.
std::string ShortestNameOf(const SceneData& data, const Hierarchy& hierarchy, std::size_t path);

}  // namespace lipvane::standalone
