#include "lipvane/host/standalone/curve_keys.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <string>
#include <utility>

#include "lipvane/host/standalone/attributes.h"
#include "lipvane/host/standalone/limits.h"
#include "lipvane/host/standalone/ma_set_attr.h"
#include "lipvane/text/numbers.h"

namespace lipvane::standalone {
namespace {

struct Names {
  const char* longName;
  const char* shortName;
};
constexpr std::array<Names, kKeyAttributeCount> kNames{{
    {"keyTimeValue", "ktv"},
    {"keyTanInType", "kit"},
    {"keyTanOutType", "kot"},
    {"keyTanInX", "kix"},
    {"keyTanInY", "kiy"},
    {"keyTanOutX", "kox"},
    {"keyTanOutY", "koy"},
    {"keyTanLocked", "ktl"},
    {"keyWeightLocked", "kwl"},
    {"keyBreakdown", "kbd"},
    {"keyTickDrawSpecial", "ktds"},
}};

/// Half of a key that no statement gives.
constexpr std::string_view kUnset = "0";

bool IsReal(std::string_view word) {
  return text::WholeReal(word).has_value();
}

bool IsFinite(std::string_view word) {
  const auto value = text::WholeReal(word);
  return value && std::isfinite(*value);
}

/// A word with escapes in it would not outlive the reading of its statement.
bool IsWithin(std::string_view text, const std::vector<std::string_view>& words) {
  return std::all_of(words.begin(), words.end(), [text](std::string_view word) {
    return !std::less<>()(word.data(), text.data()) &&
           !std::less<>()(text.data() + text.size(), word.data());
  });
}

bool IsUnderstood(KeyAttribute attribute, std::string_view word) {
  return attribute >= KeyAttribute::kTangentLock ? BooleanOf(word).has_value() : IsReal(word);
}

/// What counts of two statements about one row.
KeyTable::Entry Merge(const KeyTable::Entry& /*earlier*/, const KeyTable::Entry& later) {
  return later;
}
KeyTable::Key Merge(const KeyTable::Key& earlier, const KeyTable::Key& later) {
  return {later.index, later.time.empty() ? earlier.time : later.time,
          later.value.empty() ? earlier.value : later.value};
}

template <class T>
void MergeEach(std::vector<T>& rows) {
  const auto isLess = [](const T& a, const T& b) { return a.index < b.index; };
  if (!std::is_sorted(rows.begin(), rows.end(), isLess)) {
    std::stable_sort(rows.begin(), rows.end(), isLess);
  }
  std::size_t kept = 0;
  for (const T& row : rows) {
    const bool isSame = kept > 0 && rows[kept - 1].index == row.index;
    if (!isSame) ++kept;
    rows[kept - 1] = isSame ? Merge(rows[kept - 1], row) : row;
  }
  rows.resize(kept, T{});
}

double RealOf(std::string_view word) {
  return text::WholeReal(word).value_or(0.0);
}

/// The attribute of a key statement taken apart: "ktv[2:5]" or "ktv[2].kv".
struct KeyPlug {
  KeyAttribute attribute;
  std::uint32_t first;
  bool hasTime;   ///< of kTimeValue: which halves of a key the words give
  bool hasValue;  ///< likewise
};

std::optional<KeyPlug> ReadKeyPlug(std::string_view plug) {
  const std::size_t dot = std::min(plug.find('.'), plug.size());
  const std::string_view part = plug.substr(dot);
  const auto indexed = SplitIndex(plug.substr(0, dot));
  if (!indexed || !indexed->hasIndex) return std::nullopt;
  const auto attribute = FindKeyAttribute(indexed->name);
  if (!attribute) return std::nullopt;
  KeyPlug result{*attribute, indexed->first, part.empty(), part.empty()};
  if (part.empty()) return result;
  result.hasTime = part == ".kt" || part == ".keyTime";
  result.hasValue = part == ".kv" || part == ".keyValue";
  const bool isHalf = result.hasTime || result.hasValue;
  return isHalf && *attribute == KeyAttribute::kTimeValue ? std::optional(result) : std::nullopt;
}

bool AddKeys(const KeyPlug& plug, const std::vector<std::string_view>& words, KeyTable& table) {
  const std::size_t step = plug.hasTime && plug.hasValue ? 2 : 1;
  if (words.size() % step != 0) return false;
  std::vector<KeyTable::Key> keys;
  keys.reserve(words.size() / step);
  std::uint32_t index = plug.first;
  for (std::size_t i = 0; i < words.size(); i += step) {
    const std::string_view time = plug.hasTime ? words[i] : std::string_view();
    const std::string_view value = plug.hasValue ? words[i + step - 1] : std::string_view();
    if ((plug.hasTime && !IsFinite(time)) || (plug.hasValue && !IsReal(value))) return false;
    KeyTable::Key& key = keys.emplace_back();
    key.index = index++;
    key.time = time;
    key.value = value;
  }
  table.keys.insert(table.keys.end(), keys.begin(), keys.end());
  return true;
}

}  // namespace

std::optional<KeyAttribute> FindKeyAttribute(std::string_view name) {
  for (std::size_t i = 0; i < kNames.size(); ++i) {
    if (name == kNames[i].shortName || name == kNames[i].longName) {
      return static_cast<KeyAttribute>(i);
    }
  }
  return std::nullopt;
}

const char* ShortNameOf(KeyAttribute attribute) {
  return kNames[static_cast<std::size_t>(attribute)].shortName;
}

std::optional<std::string_view> KeyTable::Find(KeyAttribute attribute, std::uint32_t index) const {
  const auto& rows = entries[static_cast<std::size_t>(attribute)];
  const auto found = std::lower_bound(
      rows.begin(), rows.end(), index,
      [](const Entry& entry, std::uint32_t wanted) { return entry.index < wanted; });
  if (found == rows.end() || found->index != index) return std::nullopt;
  return found->word;
}

bool AddKeyStatement(std::string_view statement, const CodePage& page, KeyTable& table) {
  TokenReader reader(statement, page);
  const SetAttr parsed = ReadSetAttr(reader);
  const auto plug = ReadKeyPlug(SplitPlug(parsed.plug).attribute);
  if (!plug) return false;
  const std::vector<std::string_view> words = ReadValues(reader).words;
  if (words.size() > kMaxIndex - plug->first || !IsWithin(statement, words)) return false;
  if (plug->attribute == KeyAttribute::kTimeValue) return AddKeys(*plug, words, table);
  for (const std::string_view word : words) {
    if (!IsUnderstood(plug->attribute, word)) return false;
  }
  auto& rows = table.entries[static_cast<std::size_t>(plug->attribute)];
  std::uint32_t index = plug->first;
  for (const std::string_view word : words)
    rows.push_back({index++, word});
  return true;
}

void SortKeys(KeyTable& table) {
  MergeEach(table.keys);
  for (KeyTable::Key& key : table.keys) {
    if (key.time.empty()) key.time = kUnset;
    if (key.value.empty()) key.value = kUnset;
  }
  for (auto& rows : table.entries)
    MergeEach(rows);
}

std::vector<CurveKey> MakeKeys(const KeyTable& table, double factor, Tangent tangent) {
  std::vector<CurveKey> keys;
  keys.reserve(table.keys.size());
  for (const KeyTable::Key& row : table.keys) {
    CurveKey key;
    key.time = RealOf(row.time);
    key.value = RealOf(row.value) * factor;
    const auto read = [&](KeyAttribute attribute, double standard) {
      const auto word = table.Find(attribute, row.index);
      return word ? RealOf(*word) : standard;
    };
    const auto standardType = static_cast<double>(tangent);
    key.inType = TangentOf(read(KeyAttribute::kInType, standardType));
    key.outType = TangentOf(read(KeyAttribute::kOutType, standardType));
    key.inTangent = {read(KeyAttribute::kInX, 1.0), read(KeyAttribute::kInY, 0.0)};
    key.outTangent = {read(KeyAttribute::kOutX, 1.0), read(KeyAttribute::kOutY, 0.0)};
    keys.push_back(key);
  }
  const auto isEarlier = [](const CurveKey& a, const CurveKey& b) { return a.time < b.time; };
  if (!std::is_sorted(keys.begin(), keys.end(), isEarlier)) {
    std::stable_sort(keys.begin(), keys.end(), isEarlier);
  }
  // Of two keys at one time the one with the greater index stays.
  std::size_t kept = 0;
  for (std::size_t i = 0; i < keys.size(); ++i) {
    if (i + 1 < keys.size() && keys[i + 1].time == keys[i].time) continue;
    keys[kept++] = keys[i];
  }
  keys.resize(kept);
  return keys;
}

Tangent TangentOf(double number) {
  for (const Tangent tangent :
       {Tangent::kFixed, Tangent::kLinear, Tangent::kFlat, Tangent::kStep, Tangent::kSpline,
        Tangent::kClamped, Tangent::kPlateau, Tangent::kStepNext, Tangent::kAuto}) {
    if (number == static_cast<double>(tangent)) return tangent;
  }
  return Tangent::kSpline;  // old files have smooth tangents of other numbers
}

std::string InFileUnit(double value, double factor) {
  const double plain = value / factor;
  std::string best;
  for (const double candidate :
       {plain, std::nextafter(plain, -HUGE_VAL), std::nextafter(plain, HUGE_VAL)}) {
    if (candidate * factor != value) continue;
    std::string word = text::ExactReal(candidate);
    if (best.empty() || word.size() < best.size()) best = std::move(word);
  }
  return best.empty() ? text::ExactReal(plain) : best;
}

}  // namespace lipvane::standalone
