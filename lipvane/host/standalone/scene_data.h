#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "lipvane/host/standalone/attributes.h"
#include "lipvane/host/standalone/code_page.h"
#include "lipvane/host/standalone/curve.h"
#include "lipvane/host/standalone/hash_index.h"
#include "lipvane/host/standalone/limits.h"
#include "lipvane/host/standalone/units.h"

/// What a scene file says, as far as it is understood. Filled by the reader, asked by the scene.
namespace lipvane::standalone {

/// A node of any kind, by its number in the file's order. 0 is the world; numbers from kMaxNodes on
/// stand for names that no node of the file bears.
using ItemId = std::uint32_t;
inline constexpr ItemId kNoItem = 0xFFFFFFFF;
inline constexpr ItemId kWorldItem = 0;

struct TypeInfo {
  std::string name;
  NodeClass nodeClass = NodeClass::kOther;
  bool isTransform = false;  ///< known to be in the DAG also without a parent
  bool isShape = false;
  bool isJoint = false;
  char curveKind = 0;  ///< 'L', 'A', 'T' or 'U', by what comes out of the curve
  bool isTimeCurve = false;
};

struct Item {
  std::string name;
  std::uint32_t type = 0;
  std::uint32_t edge = HashIndex::kNone;  ///< to its first parent; none outside the DAG
  std::uint32_t order = 0;
  ItemId nextOfName = kNoItem;
  ItemId previousOfName = kNoItem;
  std::uint32_t node = 0xFFFFFFFF;  ///< its number among the DAG's nodes, once the DAG is complete
  std::uint16_t locks = 0;          ///< a bit for each channel, then for translate, rotate, scale
  bool isInFile = true;
  bool hasChannels = false;  ///< translate, rotate or scale are set or connected
};

/// A child under a parent; an instance has several.
struct Edge {
  ItemId parent;
  ItemId child;
  std::uint32_t order;                           ///< among the children of the parent
  std::uint32_t nextOfChild = HashIndex::kNone;  ///< to another parent of the same child
};

/// A node, and the edge by which a path comes to it; none outside the DAG.
struct DagPlace {
  ItemId item = kNoItem;
  std::uint32_t edge = HashIndex::kNone;
};

struct StoredValue {
  ItemId item;
  PlugCode code;
  double value;
};

/// An attribute of a node.
struct Plug {
  ItemId item = kNoItem;
  PlugCode code = plug::kUnknown;
  friend bool operator==(const Plug& a, const Plug& b) {
    return a.item == b.item && a.code == b.code;
  }
};

struct PlugHash {
  std::size_t operator()(const Plug& plug) const {
    return std::hash<std::uint64_t>()((std::uint64_t{plug.item} << 32 | plug.code) *
                                      0x9E3779B97F4A7C15u);
  }
};

/// A place in the file.
struct Span {
  std::size_t begin = 0;
  std::size_t end = 0;
};

struct CurveRecord {
  Curve curve;
  std::vector<Span> keyStatements;
  std::size_t declarationEnd = 0;  ///< behind the createNode statement
  double valueFactor = 1.0;        ///< from the file's unit to ours
  Tangent tangent = Tangent::kFixed;
  bool isLoaded = false;  ///< are the keys in `curve`? They are read when first asked for.
  bool isNew = false;
  bool hasUnreadKeys = false;  ///< do statements that are not understood give it keys, too?
  unsigned revision = 0;       ///< counts changes of the keys
};

class SceneData {
 public:
  SceneData();

  // Types.
  std::uint32_t InternType(std::string_view name);
  const TypeInfo& TypeOf(ItemId item) const { return types[items[item].type]; }

  // Nodes.
  bool IsDag(ItemId item) const { return items[item].edge != HashIndex::kNone; }
  /// Adds a node under a parent, or outside the DAG for kNoItem. The name becomes the next free
  /// one.
  ItemId AddItem(std::string_view name, std::uint32_t type, ItemId parent);
  /// Puts a node that was outside the DAG under the world, where its creation puts it.
  void MakeDag(ItemId item);
  void Rename(ItemId item, std::string_view name);
  /// Gives the edge's child another parent there; false when it is a child of that already.
  bool Reparent(std::uint32_t edge, ItemId parent);
  void AddInstance(ItemId item, ItemId parent);
  ItemId ChildOf(ItemId parent, std::string_view name) const;
  /// A node by its name, or partial or full path; kNoItem when there is none. Of several, the one
  /// made last, and `isAmbiguous` is set.
  DagPlace FindPlace(std::string_view path, bool* isAmbiguous = nullptr) const;
  ItemId FindItem(std::string_view path, bool* isAmbiguous = nullptr) const {
    return FindPlace(path, isAmbiguous).item;
  }
  /// The first node of the short name; others follow by `nextOfName`.
  ItemId FirstOfName(std::string_view name) const;

  // Names that connections mention and no node of the file bears.
  ItemId MissingItem(std::string_view name);
  bool IsMissing(ItemId item) const { return item >= kMaxNodes; }
  const std::string& NameOf(ItemId item) const;

  // Values and curves.
  void SortValues();
  /// The value that was set last. Needs sorted values.
  double ValueOf(Plug plug) const;
  CurveRecord* CurveOf(ItemId item);

  std::string text;  ///< the file
  CodePage page;     ///< of the text and of all names
  std::deque<TypeInfo> types;
  std::deque<Item> items;
  std::deque<Edge> edges;
  std::deque<StoredValue> values;
  std::unordered_map<Plug, Plug, PlugHash> connections;  ///< from a destination to its source
  std::unordered_map<ItemId, CurveRecord> curves;
  std::vector<std::string> notes;
  std::vector<std::string> references;

  std::string timeUnit = "film";
  std::string linearUnit = "centimeter";
  std::string angularUnit = "degree";
  double framesPerSecond = 24.0;
  double centimetresPerUnit = 1.0;
  double radiansPerUnit = kRadiansPerDegree;
  double startTime = 1.0;        // a new scene of the host stands there
  std::size_t trailerBegin = 0;  ///< behind the last statement

 private:
  bool IsTaken(ItemId parent, std::string_view name) const;
  std::string FreeName(ItemId parent, std::string_view name);
  void CountNameSearch(std::size_t steps) const;
  void LinkName(ItemId item);
  void UnlinkName(ItemId item);
  /// The name, or the next one that is free under all parents of the node.
  std::string FreeNameFor(ItemId item, std::string_view name);
  void ForceRename(ItemId item, std::string_view name);
  void CountRenamed(std::uint32_t edge, std::size_t nameBytes);
  std::uint32_t EdgeTo(ItemId parent, std::string_view name) const;
  std::uint32_t AddEdge(ItemId parent, ItemId child, std::uint32_t order);
  /// Makes the edge known by its child's name, which changes when it is taken there.
  void PlaceEdge(std::uint32_t edge);
  static std::size_t EdgeHash(ItemId parent, std::string_view name);

  std::unordered_map<std::string, std::uint32_t> typeByName_;
  HashIndex itemsByName_;
  HashIndex edgesByName_;
  std::unordered_map<std::string, std::uint64_t> lastSuffix_;
  std::vector<std::string> missing_;
  std::unordered_map<std::string, ItemId> missingByName_;
  std::uint32_t nextOrder_ = 0;
  mutable std::size_t nameSearch_ = 0;  // steps taken, for the limit
  std::size_t edgesRenamed_ = 0;        // likewise
};

}  // namespace lipvane::standalone
