#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "lipvane/host/standalone/scene.h"

namespace lipvane::standalone {

/// An attribute of a node that is understood, one number a component. The first nine are the
/// channels.
using PlugCode = std::uint32_t;

namespace plug {
inline constexpr PlugCode kTranslate = 0, kRotate = 3, kScale = 6, kShear = 9, kRotateOrder = 12,
                          kRotateAxis = 13, kJointOrient = 16, kInverseScale = 19,
                          kSegmentScaleCompensate = 22, kRotatePivot = 23,
                          kRotatePivotTranslate = 26, kScalePivot = 29, kScalePivotTranslate = 32,
                          kTransformCount = 35;
// Curves and unit conversions.
inline constexpr PlugCode kInput = 64, kOutput = 65, kFactor = 66;
// Pair blends.
inline constexpr PlugCode kInTranslate1 = 70, kInRotate1 = 73, kInTranslate2 = 76, kInRotate2 = 79,
                          kOutTranslate = 82, kOutRotate = 85, kWeight = 88, kTranslateMode = 89,
                          kRotateMode = 92, kRotInterpolation = 93;
// Elements of a character's arrays: the kind in the upper half byte, the index below.
inline constexpr PlugCode kLinearElement = 0x40000000, kAngularElement = 0x50000000,
                          kUnitlessElement = 0x60000000, kTimeElement = 0x70000000;
/// An attribute that is not understood.
inline constexpr PlugCode kUnknown = 0xFFFFFFFF;
}  // namespace plug

enum class Unit { kPlain, kLength, kAngle };

/// What a value of the attribute is measured in.
Unit UnitOf(PlugCode code);

/// The value of an attribute that nobody has set.
double DefaultOf(PlugCode code);

/// "rotateAxisX" for a transform's attribute.
const char* TransformAttributeName(PlugCode code);

/// Kinds of node whose attributes differ.
enum class NodeClass : std::uint8_t { kOther, kCurve, kCharacter, kUnitConversion, kPairBlend };

/// A row of components.
struct PlugRange {
  PlugCode first = plug::kUnknown;
  std::uint32_t count = 1;
};

/// The attribute by its long or short name (without the node's), or nothing when it is not
/// understood. Compounds and ranges of an array give several components.
std::optional<PlugRange> FindPlug(NodeClass nodeClass, std::string_view attribute);

/// "name[3:5]" taken apart; without brackets `hasIndex` is false.
struct IndexedName {
  std::string_view name;
  bool hasIndex = false;
  std::uint32_t first = 0;
  std::uint32_t last = 0;
};
/// Nothing when the brackets hold no index within bounds or something follows them.
std::optional<IndexedName> SplitIndex(std::string_view attribute);

}  // namespace lipvane::standalone
