#include "lipvane/host/standalone/path_names.h"

#include <algorithm>
#include <array>
#include <tuple>
#include <utility>

#include "lipvane/host/standalone/limits.h"

namespace lipvane::standalone {
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

std::vector<std::uint32_t> PathRanks(const SceneData& data, const Hierarchy& hierarchy) {
  // Names are compared once for all paths: instances may give a long one any number of them.
  const std::vector<Branch> branches = SortedBranches(data, hierarchy);
  std::vector<std::array<std::uint32_t, 2>> places(hierarchy.nodes.size());  // without and with bar
  for (std::uint32_t i = 0; i < branches.size(); ++i)
    places[branches[i].node][branches[i].hasBar ? 1 : 0] = i;

  const std::size_t count = hierarchy.paths.size();
  constexpr std::uint32_t kNone = 0xFFFFFFFF;
  std::vector<std::uint32_t> firstChild(count, kNone);
  std::vector<std::uint32_t> nextSibling(count, kNone);
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
    for (std::uint32_t child = firstChild[step.path]; child != kNone; child = nextSibling[child]) {
      const auto [place, placeOfThoseBelow] = places[hierarchy.paths[child].node];
      ahead.push_back({place, child});
      if (firstChild[child] != kNone) ahead.push_back({placeOfThoseBelow, child});
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
