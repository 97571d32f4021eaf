#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "lipvane/host/standalone/code_page.h"
#include "lipvane/host/standalone/curve.h"

/// The keys of a curve as statements of a scene file give them.
namespace lipvane::standalone {

/// What a file says key by key.
enum class KeyAttribute {
  kTimeValue,
  kInType,
  kOutType,
  kInX,
  kInY,
  kOutX,
  kOutY,
  kTangentLock,
  kWeightLock,
  kBreakdown,
  kTick,
};
inline constexpr std::size_t kKeyAttributeCount = 11;

/// By its long or short name, without brackets.
std::optional<KeyAttribute> FindKeyAttribute(std::string_view name);
/// "ktv" and so on.
const char* ShortNameOf(KeyAttribute attribute);

/// The words that statements give for each key, by the index in the file. Words live as long as the
/// file's text.
struct KeyTable {
  struct Key {
    std::uint32_t index;
    std::string_view time;
    std::string_view value;
  };
  struct Entry {
    std::uint32_t index;
    std::string_view word;
  };
  std::vector<Key> keys;  ///< by index once all is read, each index once
  std::array<std::vector<Entry>, kKeyAttributeCount> entries;  ///< likewise; none for kTimeValue

  /// The word for a key, or nothing.
  std::optional<std::string_view> Find(KeyAttribute attribute, std::uint32_t index) const;
};

/// Takes in one setAttr of a key attribute or of half a key (".ktv[2].kv"). False, and the table as
/// it was, when the statement is not understood. Call SortKeys after the last.
bool AddKeyStatement(std::string_view statement, const CodePage& page, KeyTable& table);
/// Orders the table; of what was said twice the later counts, and half a key that was not said is
/// "0".
void SortKeys(KeyTable& table);

/// The table's keys, strictly ascending in time. `factor` leads from the file's unit to ours.
std::vector<CurveKey> MakeKeys(const KeyTable& table, double factor, Tangent tangent);

/// The shortest number of the file's unit that reads back as exactly the value, when there is one,
/// else the nearest. `factor` leads from the file's unit to ours.
std::string InFileUnit(double value, double factor);

/// The tangent type of a number in the file.
Tangent TangentOf(double number);

}  // namespace lipvane::standalone
