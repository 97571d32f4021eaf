#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "lipvane/host/standalone/scene_data.h"

namespace lipvane::standalone {

/// The number of a node that is not in the DAG.
inline constexpr std::uint32_t kUnnumbered = 0xFFFFFFFF;

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

}  // namespace lipvane::standalone
