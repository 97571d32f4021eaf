#pragma once

#include <vector>

namespace lipvane::standalone {

/// How a curve leaves or enters a key; the numbers are those of a scene file.
enum class Tangent {
  kFixed = 1,
  kLinear = 2,
  kFlat = 3,
  kStep = 5,
  kSpline = 9,
  kClamped = 10,
  kPlateau = 16,
  kStepNext = 17,
  kAuto = 18,
};

/// What a curve does outside its keys; the numbers are those of a scene file.
enum class Infinity { kConstant = 0, kLinear = 1, kCycle = 3, kCycleOffset = 4, kOscillate = 5 };

/// The direction of a fixed tangent: x in seconds, y in the curve's internal unit. Its length counts
/// only in a weighted curve.
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

/// A curve over time, evaluated as the host evaluates it.
struct Curve {
  std::vector<CurveKey> keys;  ///< strictly ascending in time
  Infinity before = Infinity::kConstant;
  Infinity after = Infinity::kConstant;
  bool weighted = true;
  double framesPerSecond = 24.0;

  /// The value at a time in frames; 0 without keys.
  double ValueAt(double time) const;
  /// Adds a key in its place, or gives the key at that time the value.
  void SetKey(double time, double value);
};

}  // namespace lipvane::standalone
