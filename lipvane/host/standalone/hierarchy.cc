#include "lipvane/host/standalone/hierarchy.h"

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <string>

#include "lipvane/host/standalone/limits.h"

namespace lipvane::standalone {
namespace {

/// The children of every node, in order.
class Children {
 public:
  explicit Children(const SceneData& data) : begins_(data.items.size() + 1) {
    for (const Edge& edge : data.edges) {
      if (edge.parent != kNoItem) ++begins_[edge.parent + 1];
    }
    for (std::size_t i = 1; i < begins_.size(); ++i)
      begins_[i] += begins_[i - 1];
    rows_.resize(begins_.back());
    std::vector<std::uint32_t> ends(begins_.begin(), begins_.end() - 1);
    for (const Edge& edge : data.edges) {
      if (edge.parent != kNoItem) rows_[ends[edge.parent]++] = {edge.order, edge.child};
    }
    const auto isEarlier = [](const Row& a, const Row& b) { return a.order < b.order; };
    for (ItemId item = 0; item < data.items.size(); ++item) {
      const auto first = rows_.begin() + begins_[item];
      const auto last = rows_.begin() + begins_[item + 1];
      if (!std::is_sorted(first, last, isEarlier)) std::stable_sort(first, last, isEarlier);
    }
  }

  std::size_t Count(ItemId parent) const { return begins_[parent + 1] - begins_[parent]; }
  ItemId At(ItemId parent, std::size_t i) const { return rows_[begins_[parent] + i].child; }

 private:
  struct Row {
    std::uint32_t order = 0;
    ItemId child = kNoItem;
  };
  std::vector<std::uint32_t> begins_;
  std::vector<Row> rows_;
};

/// Takes nodes off from the world down; what is never free of parents stands in a ring or below
/// one.
void RefuseRings(const SceneData& data, const Children& children) {
  std::vector<std::uint32_t> parents(data.items.size());
  for (const Edge& edge : data.edges) {
    if (edge.parent != kNoItem) ++parents[edge.child];
  }
  std::vector<ItemId> free{kWorldItem};
  while (!free.empty()) {
    const ItemId item = free.back();
    free.pop_back();
    for (std::size_t i = 0; i < children.Count(item); ++i) {
      const ItemId child = children.At(item, i);
      if (--parents[child] == 0) free.push_back(child);
    }
  }
  for (ItemId item = 0; item < data.items.size(); ++item) {
    if (parents[item] != 0) {
      throw std::runtime_error("\"" + data.items[item].name + "\" is parented in a ring");
    }
  }
}

NodeKind KindOf(const SceneData& data, const Children& children, ItemId item) {
  if (item == kWorldItem) return NodeKind::kWorld;
  const TypeInfo& type = data.TypeOf(item);
  if (type.isJoint) return NodeKind::kJoint;
  // A type that a plug-in brought tells by what it has.
  const bool isTransform = type.isTransform || children.Count(item) > 0 ||
                           (data.items[item].hasChannels && !type.isShape);
  return isTransform ? NodeKind::kTransform : NodeKind::kShape;
}

}  // namespace

Hierarchy MakeHierarchy(SceneData& data) {
  const Children children(data);
  RefuseRings(data, children);
  Hierarchy result;
  for (Item& item : data.items)
    item.node = kUnnumbered;

  struct Step {
    ItemId item;
    std::uint32_t parentPath;
  };
  std::vector<Step> ahead{{kWorldItem, 0}};
  while (!ahead.empty()) {
    const Step step = ahead.back();
    ahead.pop_back();
    // Those ahead become paths as well.
    if (result.paths.size() + ahead.size() >= data.items.size() + kMaxInstancePaths) {
      throw std::runtime_error("instances make too many paths");
    }
    const auto path = static_cast<std::uint32_t>(result.paths.size());
    std::uint32_t& node = data.items[step.item].node;
    if (node == kUnnumbered) {
      node = static_cast<std::uint32_t>(result.nodes.size());
      result.nodes.push_back({step.item, path, path, KindOf(data, children, step.item)});
    } else {
      result.paths[result.nodes[node].lastPath].nextOfNode = path;
      result.nodes[node].lastPath = path;
    }
    result.paths.push_back({node, step.parentPath, 0});
    for (std::size_t i = children.Count(step.item); i > 0; --i) {
      ahead.push_back({children.At(step.item, i - 1), path});
    }
  }
  return result;
}

}  // namespace lipvane::standalone
