#include "lipvane/host/standalone/scene_data.h"

#include <algorithm>
#include <charconv>
#include <functional>
#include <stdexcept>
#include <tuple>
#include <utility>

#include "lipvane/host/standalone/dag_types.h"

namespace lipvane::standalone {
namespace {

constexpr std::size_t kNpos = std::string_view::npos;
/// Bytes of a name that are looked through about as fast as a node is found.
constexpr std::size_t kBytesOfAStep = 256;

TypeInfo MakeType(std::string_view name) {
  TypeInfo info;
  info.name = name;
  info.isJoint = name == "joint" || name == "hikFKJoint";
  info.isTransform = IsTransformType(name);
  info.isShape = IsShapeType(name);
  constexpr std::string_view kCurve = "animCurve";
  if (name.size() == kCurve.size() + 2 && name.substr(0, kCurve.size()) == kCurve) {
    info.nodeClass = NodeClass::kCurve;
    info.isTimeCurve = name[kCurve.size()] == 'T';
    info.curveKind = name.back();
  } else if (name == "character") {
    info.nodeClass = NodeClass::kCharacter;
  } else if (name == "unitConversion") {
    info.nodeClass = NodeClass::kUnitConversion;
  } else if (name == "pairBlend") {
    info.nodeClass = NodeClass::kPairBlend;
  }
  return info;
}

std::size_t Hash(std::string_view name) {
  return std::hash<std::string_view>()(name);
}

bool IsLess(const StoredValue& a, const StoredValue& b) {
  return std::tie(a.item, a.code) < std::tie(b.item, b.code);
}

}  // namespace

SceneData::SceneData() {
  Item world;
  world.name = "world";
  world.type = InternType("world");
  world.isInFile = false;
  world.edge = 0;
  items.push_back(std::move(world));
  edges.push_back({kNoItem, kWorldItem, 0});

  const std::uint32_t transform = InternType("transform");
  const std::uint32_t camera = InternType("camera");
  for (const std::string name : {"persp", "top", "front", "side"}) {
    const ItemId view = AddItem(name, transform, kWorldItem);
    const ItemId shape = AddItem(name + "Shape", camera, view);
    items[view].isInFile = items[shape].isInFile = false;
  }
}

std::uint32_t SceneData::InternType(std::string_view name) {
  std::string key(name);
  const auto known = typeByName_.find(key);
  if (known != typeByName_.end()) return known->second;
  // First the type: a name that leads to none would be worse than a type without a name.
  const auto type = static_cast<std::uint32_t>(types.size());
  types.push_back(MakeType(name));
  typeByName_.emplace(std::move(key), type);
  return type;
}

ItemId SceneData::AddItem(std::string_view name, std::uint32_t type, ItemId parent) {
  if (items.size() >= kMaxNodes) throw std::length_error("there are too many nodes");
  const auto item = static_cast<ItemId>(items.size());
  Item made;
  made.name = FreeName(parent, name);
  made.type = type;
  made.order = nextOrder_++;
  items.push_back(std::move(made));
  LinkName(item);
  if (parent != kNoItem) items[item].edge = AddEdge(parent, item, items[item].order);
  return item;
}

void SceneData::MakeDag(ItemId item) {
  if (!IsDag(item)) items[item].edge = AddEdge(kWorldItem, item, items[item].order);
}

void SceneData::Rename(ItemId item, std::string_view name) {
  if (items[item].name != name) ForceRename(item, name);
}

void SceneData::ForceRename(ItemId item, std::string_view name) {
  const auto forEachEdge = [&](auto act) {
    for (std::uint32_t edge = items[item].edge; edge != HashIndex::kNone;
         edge = edges[edge].nextOfChild) {
      CountRenamed(edge, items[item].name.size());
      act(edge, EdgeHash(edges[edge].parent, items[item].name));
    }
  };
  forEachEdge([&](std::uint32_t edge, std::size_t hash) {
    edgesByName_.Replace(hash, edge, HashIndex::kNone);
  });
  UnlinkName(item);
  items[item].name = FreeNameFor(item, name);
  LinkName(item);
  forEachEdge([&](std::uint32_t edge, std::size_t hash) { edgesByName_.Insert(hash, edge); });
}

bool SceneData::Reparent(std::uint32_t edge, ItemId parent) {
  const ItemId item = edges[edge].child;
  if (ChildOf(parent, items[item].name) == item) return false;
  edgesByName_.Replace(EdgeHash(edges[edge].parent, items[item].name), edge, HashIndex::kNone);
  edges[edge].parent = parent;
  edges[edge].order = nextOrder_++;
  PlaceEdge(edge);
  return true;
}

void SceneData::AddInstance(ItemId item, ItemId parent) {
  MakeDag(item);
  if (ChildOf(parent, items[item].name) == item) return;
  const std::uint32_t first = items[item].edge;
  const auto edge = static_cast<std::uint32_t>(edges.size());
  edges.push_back({parent, item, nextOrder_++, edges[first].nextOfChild});
  edges[first].nextOfChild = edge;
  PlaceEdge(edge);
}

ItemId SceneData::ChildOf(ItemId parent, std::string_view name) const {
  const std::uint32_t edge = EdgeTo(parent, name);
  return edge == HashIndex::kNone ? kNoItem : edges[edge].child;
}

std::uint32_t SceneData::EdgeTo(ItemId parent, std::string_view name) const {
  return edgesByName_.Find(EdgeHash(parent, name), [&](std::uint32_t candidate) {
    return edges[candidate].parent == parent && items[edges[candidate].child].name == name;
  });
}

ItemId SceneData::FirstOfName(std::string_view name) const {
  return itemsByName_.Find(Hash(name), [&](ItemId item) { return items[item].name == name; });
}

DagPlace SceneData::FindPlace(std::string_view path, bool* isAmbiguous) const {
  const auto dropRoot = [](std::string_view& name) {  // a leading ':' is the root namespace
    if (!name.empty() && name[0] == ':') name.remove_prefix(1);
  };
  const auto descend = [&](DagPlace place, std::string_view rest) {
    while (place.item != kNoItem && !rest.empty()) {
      const std::size_t bar = std::min(page.Find(rest, '|'), rest.size());
      std::string_view name = rest.substr(0, bar);
      dropRoot(name);
      place.edge = EdgeTo(place.item, name);
      place.item = place.edge == HashIndex::kNone ? kNoItem : edges[place.edge].child;
      rest.remove_prefix(std::min(bar + 1, rest.size()));
    }
    return place;
  };
  dropRoot(path);
  if (path.empty() || path == "|") return {};
  if (path[0] == '|') return descend({kWorldItem, items[kWorldItem].edge}, path.substr(1));
  const std::size_t bar = page.Find(path, '|');
  const std::string_view below = bar == kNpos ? std::string_view() : path.substr(bar + 1);
  DagPlace found;
  for (ItemId item = FirstOfName(path.substr(0, bar)); item != kNoItem;
       item = items[item].nextOfName) {
    // What lies below is looked for once more; a long name takes as long as many short ones.
    CountNameSearch(1 + below.size() / kBytesOfAStep);
    const DagPlace match = descend({item, items[item].edge}, below);
    if (match.item == kNoItem || match.item == found.item) continue;
    if (found.item != kNoItem) {
      if (isAmbiguous != nullptr) *isAmbiguous = true;
      break;
    }
    found = match;
    if (isAmbiguous == nullptr) break;
  }
  return found;
}

ItemId SceneData::MissingItem(std::string_view name) {
  const auto [place, isNew] = missingByName_.try_emplace(
      std::string(name), static_cast<ItemId>(kMaxNodes + missing_.size()));
  if (isNew) missing_.emplace_back(name);
  return place->second;
}

const std::string& SceneData::NameOf(ItemId item) const {
  return IsMissing(item) ? missing_[item - kMaxNodes] : items[item].name;
}

void SceneData::SortValues() {
  if (!std::is_sorted(values.begin(), values.end(), IsLess)) {
    std::stable_sort(values.begin(), values.end(), IsLess);
  }
}

double SceneData::ValueOf(Plug plug) const {
  const StoredValue key{plug.item, plug.code, 0.0};
  const auto behind = std::upper_bound(values.begin(), values.end(), key, IsLess);
  if (behind == values.begin()) return DefaultOf(plug.code);
  const StoredValue& last = *(behind - 1);
  return last.item == plug.item && last.code == plug.code ? last.value : DefaultOf(plug.code);
}

CurveRecord* SceneData::CurveOf(ItemId item) {
  const auto found = curves.find(item);
  return found == curves.end() ? nullptr : &found->second;
}

bool SceneData::IsTaken(ItemId parent, std::string_view name) const {
  const ItemId first = FirstOfName(name);
  if (first == kNoItem) return false;
  // Only nodes of the DAG may share a name.
  if (parent == kNoItem || !IsDag(first)) return true;
  return ChildOf(parent, name) != kNoItem;
}

std::string SceneData::FreeName(ItemId parent, std::string_view name) {
  if (!IsTaken(parent, name)) return std::string(name);
  std::string_view base = name;
  while (!base.empty() && base.back() >= '0' && base.back() <= '9')
    base.remove_suffix(1);
  std::uint64_t suffix = 0;
  std::from_chars(name.data() + base.size(), name.data() + name.size(), suffix);
  // As of one that does not fit at all: behind the last number every search would begin anew.
  constexpr std::uint64_t kMaxSuffix = std::uint64_t{1} << 62;
  if (suffix > kMaxSuffix) suffix = 0;
  // Where the last search under this parent ended, so that many nodes of one name stay cheap.
  std::uint64_t& last = lastSuffix_[std::to_string(parent) + "|" + std::string(base)];
  suffix = std::max(suffix, last);
  std::string candidate = std::string(base) + std::to_string(++suffix);
  while (IsTaken(parent, candidate)) {
    CountNameSearch(1);
    candidate = std::string(base) + std::to_string(++suffix);
  }
  last = suffix;
  return candidate;
}

void SceneData::CountNameSearch(std::size_t steps) const {
  nameSearch_ += steps;
  if (nameSearch_ > kMaxNameSearch) throw std::length_error("too many nodes share their names");
}

std::string SceneData::FreeNameFor(ItemId item, std::string_view name) {
  if (!IsDag(item)) return FreeName(kNoItem, name);
  std::string free(name);
  std::uint32_t edge = items[item].edge;
  // Until no parent has asked for another since it was last asked.
  for (std::uint32_t agreed = HashIndex::kNone; edge != agreed;) {
    CountRenamed(edge, free.size());
    std::string candidate = FreeName(edges[edge].parent, free);
    if (candidate != free || agreed == HashIndex::kNone) agreed = edge;
    free = std::move(candidate);
    edge = edges[edge].nextOfChild;
    if (edge == HashIndex::kNone) edge = items[item].edge;
  }
  return free;
}

void SceneData::CountRenamed(std::uint32_t edge, std::size_t nameBytes) {
  if (edge == items[edges[edge].child].edge) return;
  // The name is hashed for each; a long one takes as long as many short ones.
  edgesRenamed_ += 1 + nameBytes / kBytesOfAStep;
  if (edgesRenamed_ > kMaxEdgesRenamed) throw std::length_error("too many instances move");
}

void SceneData::LinkName(ItemId item) {
  const std::string& name = items[item].name;
  const ItemId first = FirstOfName(name);
  items[item].nextOfName = first;
  items[item].previousOfName = kNoItem;
  if (first == kNoItem) {
    itemsByName_.Insert(Hash(name), item);
  } else {
    items[first].previousOfName = item;
    itemsByName_.Replace(Hash(name), first, item);
  }
}

void SceneData::UnlinkName(ItemId item) {
  const ItemId next = items[item].nextOfName;
  const ItemId previous = items[item].previousOfName;
  if (next != kNoItem) items[next].previousOfName = previous;
  if (previous != kNoItem) {
    items[previous].nextOfName = next;
  } else {
    itemsByName_.Replace(Hash(items[item].name), item, next);
  }
}

std::uint32_t SceneData::AddEdge(ItemId parent, ItemId child, std::uint32_t order) {
  const auto edge = static_cast<std::uint32_t>(edges.size());
  edges.push_back({parent, child, order});
  edgesByName_.Insert(EdgeHash(parent, items[child].name), edge);
  return edge;
}

void SceneData::PlaceEdge(std::uint32_t edge) {
  const ItemId child = edges[edge].child;
  const std::string name = items[child].name;
  if (ChildOf(edges[edge].parent, name) != kNoItem) {
    ForceRename(child, name);
  } else {
    edgesByName_.Insert(EdgeHash(edges[edge].parent, name), edge);
  }
}

std::size_t SceneData::EdgeHash(ItemId parent, std::string_view name) {
  return Hash(name) ^ (std::size_t{parent} + 1) * 0x9E3779B97F4A7C15u;
}

}  // namespace lipvane::standalone
