#pragma once

#include <optional>
#include <vector>

namespace lipvane::standalone {

/// How a curve leaves or enters a key; the numbers are those of a scene file.
enum class Tangent {
  kFixed = 1,
  kLinear = 2,
  kFlat = 3,
  kStep = 5,
  kSpline = 9,     ///< along the chord between the neighbours
  kClamped = 10,   ///< spline, but linear towards a level neighbour
  kPlateau = 16,   ///< kept apart from kAuto for the file's sake: evaluated alike
  kStepNext = 17,  ///< the right key's value at once after the left key
  kAuto = 18,      ///< smooth, flat at ends and extremes, never beyond the neighbours
};

/// What a curve does outside its keys; the numbers are those of a scene file.
enum class Infinity { kConstant = 0, kLinear = 1, kCycle = 3, kCycleOffset = 4, kOscillate = 5 };

/// The direction of a fixed tangent: x in seconds, y in the curve's internal unit. Its length
/// counts only in a weighted curve.
struct TangentVector {
  double x = 1.0;
  double y = 0.0;
};

struct CurveKey {
  double time = 0.0;   ///< in frames of the scene's unit
  double value = 0.0;  ///< radians, centimetres or plain, by the kind of curve
  Tangent inType = Tangent::kAuto;
  Tangent outType = Tangent::kAuto;
  TangentVector inTangent;   ///< used when inType is kFixed
  TangentVector outTangent;  ///< used when outType is kFixed
};

/// A curve over time, evaluated as the host evaluates it. A segment follows the out type of its
/// left key and the in type of its right key; step and step next leave no say to the other end.
struct Curve {
  std::vector<CurveKey> keys;  ///< strictly ascending in time
  Infinity before = Infinity::kConstant;
  Infinity after = Infinity::kConstant;
  bool weighted = true;  ///< whether the length of a fixed tangent counts
  double framesPerSecond = 24.0;

  /// The value at a time in frames: exactly a key's at that key, 0 without keys, one key's own
  /// always. Not NaN while times, values and tangents are finite.
  double ValueAt(double time) const;
  /// The key at exactly that time, or null.
  const CurveKey* FindKey(double time) const;
  /// Adds a key with automatic tangents in its place, or gives the key at exactly that time the
  /// value and leaves its tangents.
  void SetKey(double time, double value);
  /// Gives the key at exactly that time these tangents; what is not given stays. Says whether
  /// anything changed.
  bool SetTangents(double time, std::optional<Tangent> in, std::optional<Tangent> out);
};

}  // namespace lipvane::standalone
