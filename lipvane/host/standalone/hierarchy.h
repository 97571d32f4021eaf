#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "lipvane/host/standalone/scene_data.h"

namespace lipvane::standalone {

/// The DAG as a walk of the host meets it: depth first, children in order, the world first.
struct Hierarchy {
  struct Path {
    std::uint32_t node;
    std::uint32_t parent;      ///< the path above
    std::uint32_t nextOfNode;  ///< another path to the same node; 0 when there is none
  };
  struct DagNode {
    ItemId item;
    std::uint32_t firstPath;
    std::uint32_t lastPath;
    NodeKind kind;
  };
  std::vector<Path> paths;
  std::vector<DagNode> nodes;  ///< in the order in which the walk first meets them
};

/// Numbers the DAG's nodes, also in the data. Throws std::runtime_error when nodes are parented in
/// a ring or instances make too many paths.
Hierarchy MakeHierarchy(SceneData& data);

std::string FullPathOf(const SceneData& data, const Hierarchy& hierarchy, std::size_t path);

/// The same for a message: of a path beyond kMaxShownPath the end, behind "...".
std::string ShownPathOf(const SceneData& data, const Hierarchy& hierarchy, std::size_t path);

/// The place of each path when all are sorted by the bytes of their full paths, which are not made.
std::vector<std::uint32_t> PathRanks(const SceneData& data, const Hierarchy& hierarchy);

/// The end of the path that no other path has; all of it when very many share its name.
std::string ShortestNameOf(const SceneData& data, const Hierarchy& hierarchy, std::size_t path);

}  // namespace lipvane::standalone
