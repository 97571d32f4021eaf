#include "lipvane/host/standalone/attributes.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <deque>
#include <initializer_list>
#include <string>
#include <unordered_map>

#include "lipvane/host/standalone/limits.h"

namespace lipvane::standalone {
namespace {

constexpr std::size_t kNpos = std::string_view::npos;

struct Compound {
  PlugCode first;
  const char* longName;
  const char* shortName;
};

constexpr std::array kTransformCompounds{
    Compound{plug::kTranslate, "translate", "t"},
    Compound{plug::kRotate, "rotate", "r"},
    Compound{plug::kScale, "scale", "s"},
    Compound{plug::kRotateAxis, "rotateAxis", "ra"},
    Compound{plug::kJointOrient, "jointOrient", "jo"},
    Compound{plug::kInverseScale, "inverseScale", "is"},
    Compound{plug::kRotatePivot, "rotatePivot", "rp"},
    Compound{plug::kRotatePivotTranslate, "rotatePivotTranslate", "rpt"},
    Compound{plug::kScalePivot, "scalePivot", "sp"},
    Compound{plug::kScalePivotTranslate, "scalePivotTranslate", "spt"},
};

struct Axis {
  const char* longName;
  const char* shortName;
};
constexpr std::array kAxes{Axis{"X", "x"}, Axis{"Y", "y"}, Axis{"Z", "z"}};
constexpr std::array kShearAxes{Axis{"XY", "xy"}, Axis{"XZ", "xz"}, Axis{"YZ", "yz"}};

std::string Join(std::initializer_list<std::string_view> parts) {
  std::string result;
  for (const std::string_view part : parts)
    result += part;
  return result;
}

/// Names of attributes, a component of a compound also as "compound.component".
class PlugTable {
 public:
  void Add(const std::string& longName, const std::string& shortName, PlugRange range) {
    for (const std::string& name : {longName, shortName}) {
      names_.push_back(name);
      ranges_[names_.back()] = range;
    }
  }

  void AddCompound(const std::string& longName, const std::string& shortName, PlugCode first,
                   const std::array<Axis, 3>& axes, const std::string& suffix = {}) {
    const std::string longParent = Join({longName, suffix});
    const std::string shortParent = Join({shortName, suffix});
    Add(longParent, shortParent, {first, 3});
    PlugCode code = first;
    for (const Axis& axis : axes) {
      const std::string longAxis = Join({longName, axis.longName, suffix});
      const std::string shortAxis = Join({shortName, axis.shortName, suffix});
      Add(longAxis, shortAxis, {code, 1});
      for (const std::string& parent : {longParent, shortParent}) {
        Add(Join({parent, ".", longAxis}), Join({parent, ".", shortAxis}), {code, 1});
      }
      ++code;
    }
  }

  std::optional<PlugRange> Find(std::string_view name) const {
    // Most that a large scene sets are elements of arrays, of which there are none here.
    if (!name.empty() && name.back() == ']') return std::nullopt;
    const auto found = ranges_.find(name);
    return found == ranges_.end() ? std::nullopt : std::optional(found->second);
  }

 private:
  std::deque<std::string> names_;
  std::unordered_map<std::string_view, PlugRange> ranges_;
};

PlugTable MakeTransformTable() {
  PlugTable table;
  for (const Compound& compound : kTransformCompounds) {
    table.AddCompound(compound.longName, compound.shortName, compound.first, kAxes);
  }
  table.AddCompound("shear", "sh", plug::kShear, kShearAxes);
  table.Add("rotateOrder", "ro", {plug::kRotateOrder, 1});
  table.Add("segmentScaleCompensate", "ssc", {plug::kSegmentScaleCompensate, 1});
  return table;
}

PlugTable MakeConversionTable() {
  PlugTable table;
  table.Add("input", "i", {plug::kInput, 1});
  table.Add("output", "o", {plug::kOutput, 1});
  table.Add("conversionFactor", "cf", {plug::kFactor, 1});
  return table;
}

PlugTable MakeBlendTable() {
  PlugTable table;
  table.AddCompound("inTranslate", "it", plug::kInTranslate1, kAxes, "1");
  table.AddCompound("inRotate", "ir", plug::kInRotate1, kAxes, "1");
  table.AddCompound("inTranslate", "it", plug::kInTranslate2, kAxes, "2");
  table.AddCompound("inRotate", "ir", plug::kInRotate2, kAxes, "2");
  table.AddCompound("outTranslate", "ot", plug::kOutTranslate, kAxes);
  table.AddCompound("outRotate", "or", plug::kOutRotate, kAxes);
  table.Add("weight", "w", {plug::kWeight, 1});
  table.Add("translateXMode", "txm", {plug::kTranslateMode, 1});
  table.Add("translateYMode", "tym", {plug::kTranslateMode + 1, 1});
  table.Add("translateZMode", "tzm", {plug::kTranslateMode + 2, 1});
  table.Add("rotateMode", "rm", {plug::kRotateMode, 1});
  table.Add("rotInterpolation", "ri", {plug::kRotInterpolation, 1});
  return table;
}

std::optional<PlugRange> FindElement(std::string_view attribute) {
  const auto indexed = SplitIndex(attribute);
  if (!indexed || !indexed->hasIndex) return std::nullopt;
  const std::string_view name = indexed->name;
  PlugCode kind = 0;
  if (name == "lv" || name == "linearValues") kind = plug::kLinearElement;
  if (name == "av" || name == "angularValues") kind = plug::kAngularElement;
  if (name == "uv" || name == "unitlessValues") kind = plug::kUnitlessElement;
  if (name == "tv" || name == "timeValues") kind = plug::kTimeElement;
  if (kind == 0) return std::nullopt;
  return PlugRange{kind + indexed->first, indexed->last - indexed->first + 1};
}

bool IsBetween(PlugCode code, PlugCode first, PlugCode last) {
  return code >= first && code < last;
}

}  // namespace

Unit UnitOf(PlugCode code) {
  using namespace plug;
  if (code >= kLinearElement) {
    if (code < kAngularElement) return Unit::kLength;
    return code < kUnitlessElement ? Unit::kAngle : Unit::kPlain;
  }
  if (IsBetween(code, kTranslate, kRotate) || IsBetween(code, kRotatePivot, kTransformCount) ||
      IsBetween(code, kInTranslate1, kInRotate1) || IsBetween(code, kInTranslate2, kInRotate2) ||
      IsBetween(code, kOutTranslate, kOutRotate)) {
    return Unit::kLength;
  }
  if (IsBetween(code, kRotate, kScale) || IsBetween(code, kRotateAxis, kInverseScale) ||
      IsBetween(code, kInRotate1, kInTranslate2) || IsBetween(code, kInRotate2, kOutTranslate) ||
      IsBetween(code, kOutRotate, kWeight)) {
    return Unit::kAngle;
  }
  return Unit::kPlain;
}

double DefaultOf(PlugCode code) {
  using namespace plug;
  const bool isOne = IsBetween(code, kScale, kShear) ||
                     IsBetween(code, kInverseScale, kRotatePivot) || code == kFactor ||
                     code == kWeight;
  return isOne ? 1.0 : 0.0;
}

const char* TransformAttributeName(PlugCode code) {
  static const auto names = [] {
    std::array<std::string, plug::kTransformCount> made;
    for (const Compound& compound : kTransformCompounds) {
      for (std::size_t i = 0; i < 3; ++i) {
        made[compound.first + i] = std::string(compound.longName) + kAxes[i].longName;
      }
    }
    for (std::size_t i = 0; i < 3; ++i) {
      made[plug::kShear + i] = std::string("shear") + kShearAxes[i].longName;
    }
    made[plug::kRotateOrder] = "rotateOrder";
    made[plug::kSegmentScaleCompensate] = "segmentScaleCompensate";
    return made;
  }();
  return code < plug::kTransformCount ? names[code].c_str() : "";
}

const char* ChannelName(Channel channel) {
  return TransformAttributeName(static_cast<PlugCode>(channel));
}

const char* ChannelShortName(Channel channel) {
  constexpr std::array<const char*, kChannelCount> kNames{"tx", "ty", "tz", "rx", "ry",
                                                          "rz", "sx", "sy", "sz"};
  // cppcheck-suppress CastIntegerToAddressAtReturn ; an array of texts
  return kNames[static_cast<std::size_t>(channel)];
}

std::optional<PlugRange> FindPlug(NodeClass nodeClass, std::string_view attribute) {
  static const PlugTable transforms = MakeTransformTable();
  static const PlugTable conversions = MakeConversionTable();
  static const PlugTable blends = MakeBlendTable();
  switch (nodeClass) {
    case NodeClass::kOther:
      return transforms.Find(attribute);
    case NodeClass::kCurve:
    case NodeClass::kUnitConversion:
      return conversions.Find(attribute);
    case NodeClass::kPairBlend:
      return blends.Find(attribute);
    case NodeClass::kCharacter:
      return FindElement(attribute);
  }
  return std::nullopt;
}

std::optional<IndexedName> SplitIndex(std::string_view attribute) {
  IndexedName result;
  const std::size_t open = attribute.find('[');
  result.name = attribute.substr(0, open);
  if (open == kNpos) return result;
  const char* const end = attribute.data() + attribute.size();
  std::uint64_t first = 0;
  auto parsed = std::from_chars(attribute.data() + open + 1, end, first);
  std::uint64_t last = first;
  if (parsed.ec == std::errc() && parsed.ptr != end && *parsed.ptr == ':') {
    parsed = std::from_chars(parsed.ptr + 1, end, last);
  }
  if (parsed.ec != std::errc() || end - parsed.ptr != 1 || *parsed.ptr != ']') return std::nullopt;
  if (last < first || last > kMaxIndex) return std::nullopt;
  result.hasIndex = true;
  result.first = static_cast<std::uint32_t>(first);
  result.last = static_cast<std::uint32_t>(last);
  return result;
}

}  // namespace lipvane::standalone
