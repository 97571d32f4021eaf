#include "lipvane/host/standalone/hierarchy.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <stdexcept>
#include <tuple>

namespace lipvane::standalone {
namespace {

constexpr std::uint32_t kUnnumbered = 0xFFFFFFFF;

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

namespace {

const std::string& NameAt(const SceneData& data, const Hierarchy& hierarchy, std::size_t path) {
  return data.items[hierarchy.nodes[hierarchy.paths[path].node].item].name;
}

/// The names, given from the last to the first, each behind a bar.
std::string Joined(const std::vector<const std::string*>& names) {
  std::size_t length = 0;
  for (const std::string* const name : names)
    length += name->size() + 1;
  std::string result;
  result.reserve(length);
  for (auto name = names.rbegin(); name != names.rend(); ++name)
    (result += '|') += **name;
  return result;
}

}  // namespace

std::string FullPathOf(const SceneData& data, const Hierarchy& hierarchy, std::size_t path) {
  std::vector<const std::string*> names;
  for (std::size_t at = path; at != 0; at = hierarchy.paths[at].parent)
    names.push_back(&NameAt(data, hierarchy, at));
  return Joined(names);
}

std::string ShownPathOf(const SceneData& data, const Hierarchy& hierarchy, std::size_t path) {
  std::vector<const std::string*> names;
  std::size_t length = 0;
  for (std::size_t at = path; at != 0; at = hierarchy.paths[at].parent) {
    const std::string& name = NameAt(data, hierarchy, at);
    length += name.size() + 1;
    if (length > kMaxShownPath && at != path) return "..." + Joined(names);
    names.push_back(&name);
  }
  return Joined(names);
}

namespace {

/// What a full path goes on with below its parent's: a node's name, or the name and the bar before
/// those below it.
struct Branch {
  std::uint32_t node;
  bool hasBar;
};

/// In the order of their bytes.
std::vector<Branch> SortedBranches(const SceneData& data, const Hierarchy& hierarchy) {
  const auto isBefore = [&](const Branch& a, const Branch& b) {
    const std::string& nameA = data.items[hierarchy.nodes[a.node].item].name;
    const std::string& nameB = data.items[hierarchy.nodes[b.node].item].name;
    const std::size_t common = std::min(nameA.size(), nameB.size());
    if (const int order = nameA.compare(0, common, nameB, 0, common)) return order < 0;
    const auto next = [&](const std::string& name, bool hasBar) {
      if (name.size() > common) return static_cast<int>(static_cast<unsigned char>(name[common]));
      return hasBar ? int{'|'} : -1;
    };
    const int nextA = next(nameA, a.hasBar);
    const int nextB = next(nameB, b.hasBar);
    return std::tuple(nextA, nameA.size(), a.node) < std::tuple(nextB, nameB.size(), b.node);
  };
  std::vector<Branch> branches;
  for (std::uint32_t node = 0; node < hierarchy.nodes.size(); ++node) {
    branches.push_back({node, false});
    branches.push_back({node, true});
  }
  std::sort(branches.begin(), branches.end(), isBefore);
  return branches;
}

}  // namespace

std::vector<std::uint32_t> PathRanks(const SceneData& data, const Hierarchy& hierarchy) {
  // Names are compared once for all paths: instances may give a long one any number of them.
  const std::vector<Branch> branches = SortedBranches(data, hierarchy);
  std::vector<std::array<std::uint32_t, 2>> places(hierarchy.nodes.size());  // without and with bar
  for (std::uint32_t i = 0; i < branches.size(); ++i)
    places[branches[i].node][branches[i].hasBar ? 1 : 0] = i;

  const std::size_t count = hierarchy.paths.size();
  std::vector<std::uint32_t> firstChild(count, kUnnumbered);
  std::vector<std::uint32_t> nextSibling(count, kUnnumbered);
  for (std::size_t path = count; path-- > 1;) {
    nextSibling[path] = firstChild[hierarchy.paths[path].parent];
    firstChild[hierarchy.paths[path].parent] = static_cast<std::uint32_t>(path);
  }
  struct Step {
    std::uint32_t place;
    std::uint32_t path;
  };
  std::vector<std::uint32_t> ranks(count);
  std::uint32_t next = 0;
  ranks[0] = next++;
  std::vector<Step> ahead{{places[0][1], 0}};
  while (!ahead.empty()) {
    const Step step = ahead.back();
    ahead.pop_back();
    if (!branches[step.place].hasBar) {
      ranks[step.path] = next++;
      continue;
    }
    const auto begin = static_cast<std::ptrdiff_t>(ahead.size());
    for (std::uint32_t child = firstChild[step.path]; child != kUnnumbered;
         child = nextSibling[child]) {
      const auto [place, placeOfThoseBelow] = places[hierarchy.paths[child].node];
      ahead.push_back({place, child});
      if (firstChild[child] != kUnnumbered) ahead.push_back({placeOfThoseBelow, child});
    }
    // The first one goes on top.
    std::sort(ahead.begin() + begin, ahead.end(),
              [](const Step& a, const Step& b) { return a.place > b.place; });
  }
  return ranks;
}

std::string ShortestNameOf(const SceneData& data, const Hierarchy& hierarchy, std::size_t path) {
  if (path == 0) return NameAt(data, hierarchy, 0);
  // Places in other paths that all names so far agree with; they move up with this one.
  std::vector<std::uint32_t> rivals;
  for (ItemId item = data.FirstOfName(NameAt(data, hierarchy, path)); item != kNoItem;
       item = data.items[item].nextOfName) {
    if (data.items[item].node == kUnnumbered) continue;
    std::uint32_t at = hierarchy.nodes[data.items[item].node].firstPath;
    do {
      if (at != path) rivals.push_back(at);
      if (rivals.size() > kMaxRivals) return FullPathOf(data, hierarchy, path);
      at = hierarchy.paths[at].nextOfNode;
    } while (at != 0);
  }
  std::vector<const std::string*> names{&NameAt(data, hierarchy, path)};
  std::size_t at = path;
  while (!rivals.empty()) {
    at = hierarchy.paths[at].parent;
    // At the top only the leading '|' tells it from paths that go on.
    if (at == 0) return Joined(names);
    const std::string& name = NameAt(data, hierarchy, at);
    std::vector<std::uint32_t> left;
    for (const std::uint32_t rival : rivals) {
      const std::uint32_t above = hierarchy.paths[rival].parent;
      if (above != 0 && NameAt(data, hierarchy, above) == name) left.push_back(above);
    }
    rivals = std::move(left);
    names.push_back(&name);
  }
  return Joined(names).substr(1);
}

}  // namespace lipvane::standalone
