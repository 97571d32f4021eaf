#include "lipvane/host/standalone/curve.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>

namespace lipvane::standalone {
namespace {

enum class Side { kIn, kOut };

/// The slope of a vertical tangent in units a second: the host's own, tan(89.99999 degrees).
constexpr double kSteepest = 5729577.9485111479;
/// Values no further apart than this are level to a clamped tangent.
constexpr double kLevel = 1e-3;
/// Halvings of the unit interval that leave nothing of a double.
constexpr int kHalvings = 60;

double Secant(const CurveKey& from, const CurveKey& to) {
  const double span = to.time - from.time;
  return span > 0 ? (to.value - from.value) / span : 0.0;
}

/// A tangent vector's slope in units a frame.
double VectorSlope(const TangentVector& vector, double framesPerSecond) {
  const double slope = vector.y / vector.x;
  if (vector.x > 0 && std::isfinite(slope)) return slope / framesPerSecond;
  return vector.y == 0 ? 0.0 : std::copysign(kSteepest, vector.y) / framesPerSecond;
}

/// Smooth, but flat at ends and extremes, and never so steep that the curve leaves the range of two
/// neighbouring keys: three times the secant is where it would.
double LimitedSlope(const std::vector<CurveKey>& keys, std::size_t index) {
  if (index == 0 || index + 1 == keys.size()) return 0.0;
  const double before = Secant(keys[index - 1], keys[index]);
  const double after = Secant(keys[index], keys[index + 1]);
  const double limit = 3 * std::min(std::abs(before), std::abs(after));
  const double smooth = Secant(keys[index - 1], keys[index + 1]);
  if (before > 0 && after > 0) return std::min(smooth, limit);
  if (before < 0 && after < 0) return std::max(smooth, -limit);
  return 0.0;
}

/// The slope of a key's tangent in units a frame. Needs two keys.
double Slope(const Curve& curve, std::size_t index, Side side) {
  const std::vector<CurveKey>& keys = curve.keys;
  const CurveKey& key = keys[index];
  // An end key has one neighbour, which both of its tangents look at.
  const std::size_t previous = index == 0 ? 0 : index - 1;
  const std::size_t next = std::min(index + 1, keys.size() - 1);
  const bool left = index + 1 == keys.size() || (side == Side::kIn && index > 0);
  const auto secant = [&] { return left ? Secant(keys[previous], key) : Secant(key, keys[next]); };

  switch (side == Side::kIn ? key.inType : key.outType) {
    case Tangent::kFixed:
      return VectorSlope(side == Side::kIn ? key.inTangent : key.outTangent, curve.framesPerSecond);
    case Tangent::kLinear:
      return secant();
    case Tangent::kClamped:
      if (std::abs(keys[left ? previous : next].value - key.value) <= kLevel) return secant();
      return Secant(keys[previous], keys[next]);
    case Tangent::kSpline:
      return Secant(keys[previous], keys[next]);
    case Tangent::kPlateau:
    case Tangent::kAuto:
      return LimitedSlope(keys, index);
    case Tangent::kFlat:
    case Tangent::kStep:
    case Tangent::kStepNext:
      break;
  }
  return 0.0;
}

/// A tangent within one segment. Its control point lies at a third of it.
struct SegmentTangent {
  double length = 1.0;  ///< in time, the segment being 1
  double rise = 0.0;
};

SegmentTangent TangentOf(const Curve& curve, std::size_t index, Side side, double span) {
  const CurveKey& key = curve.keys[index];
  const bool in = side == Side::kIn;
  if (curve.weighted && (in ? key.inType : key.outType) == Tangent::kFixed) {
    const TangentVector& vector = in ? key.inTangent : key.outTangent;
    return {vector.x * curve.framesPerSecond / span, vector.y};
  }
  return {1.0, Slope(curve, index, side) * span};
}

/// Makes a tangent shorter or longer without turning it.
void Resize(SegmentTangent& tangent, double length) {
  if (tangent.length != 0) tangent.rise *= length / tangent.length;
  tangent.length = length;
}

/// Shortens the tangents so that time never runs backwards between them. As in the host the left
/// one has the say: the right one may only be what it leaves room for.
void KeepMonotone(SegmentTangent& out, SegmentTangent& in) {
  // In thirds of the segment, which is what control points are given in, time is monotone when
  // both are within 1, or where a^2 + ab + b^2 - 2a - 2b + 1 <= 0.
  const double left = std::clamp(out.length / 3, 0.0, 4.0 / 3);
  const double root = std::sqrt(std::max(0.0, left * (4 - 3 * left)));
  const double least = left > 1 ? (2 - left - root) / 2 : 0.0;
  const double most = (2 - left + root) / 2;
  const double right = in.length / 3;
  if (left != out.length / 3) Resize(out, left * 3);
  if (right < least || right > most) Resize(in, std::clamp(right, least, most) * 3);
}

double Hermite(double from, double to, double out, double in, double u) {
  const double rise = to - from;
  return from + u * (out + u * (3 * rise - 2 * out - in + u * (out + in - 2 * rise)));
}

/// The parameter at which monotone time from 0 to 1 reaches `time`.
double ParameterAt(double time, double out, double in) {
  double low = 0.0;
  double high = 1.0;
  for (int i = 0; i < kHalvings; ++i) {
    const double middle = (low + high) / 2;
    (Hermite(0.0, 1.0, out, in, middle) < time ? low : high) = middle;
  }
  return (low + high) / 2;
}

/// Between the key at `index` and the next, which is later.
double SegmentValue(const Curve& curve, std::size_t index, double time) {
  const CurveKey& from = curve.keys[index];
  const CurveKey& to = curve.keys[index + 1];
  if (from.outType == Tangent::kStep) return from.value;
  if (from.outType == Tangent::kStepNext || to.inType == Tangent::kStepNext) return to.value;

  const double span = to.time - from.time;
  if (std::isinf(span)) return from.value;
  const double u = (time - from.time) / span;
  SegmentTangent out = TangentOf(curve, index, Side::kOut, span);
  SegmentTangent in = TangentOf(curve, index + 1, Side::kIn, span);
  double parameter = u;
  if (out.length != 1 || in.length != 1) {
    KeepMonotone(out, in);
    parameter = ParameterAt(u, out.length, in.length);
  }
  const double value = Hermite(from.value, to.value, out.rise, in.rise, parameter);
  // Where the polynomial leaves the range of double a straight line stands in.
  return std::isfinite(value) ? value : from.value * (1 - u) + to.value * u;
}

/// From the first to the last key.
double ValueWithin(const Curve& curve, double time) {
  const auto next =
      std::upper_bound(curve.keys.begin(), curve.keys.end(), time,
                       [](double value, const CurveKey& key) { return value < key.time; });
  if (next == curve.keys.begin()) return curve.keys.front().value;
  const auto from = std::prev(next);
  if (next == curve.keys.end() || from->time == time) return from->value;
  return SegmentValue(curve, static_cast<std::size_t>(from - curve.keys.begin()), time);
}

/// Before the first key or after the last. Needs two keys.
double ValueBeyond(const Curve& curve, double time) {
  const CurveKey& first = curve.keys.front();
  const CurveKey& last = curve.keys.back();
  const bool before = time < first.time;
  const CurveKey& end = before ? first : last;
  const double range = last.time - first.time;
  const double since = time - first.time;
  const Infinity infinity = before ? curve.before : curve.after;
  if (infinity == Infinity::kConstant || !(range > 0) || !std::isfinite(since)) return end.value;

  if (infinity == Infinity::kLinear) {
    const double slope =
        before ? Slope(curve, 0, Side::kIn) : Slope(curve, curve.keys.size() - 1, Side::kOut);
    return end.value + slope * (time - end.time);
  }
  const double period = infinity == Infinity::kOscillate ? 2 * range : range;
  double phase = std::fmod(since, period);
  if (phase < 0) phase += period;
  const double cycles = std::round((since - phase) / period);
  if (infinity == Infinity::kOscillate && phase > range) phase = period - phase;
  const double value = ValueWithin(curve, std::min(first.time + phase, last.time));
  const double rise = last.value - first.value;
  // Far out the cycles may be infinitely many, which a rise of nothing must not see.
  return infinity == Infinity::kCycleOffset && rise != 0 ? value + cycles * rise : value;
}

}  // namespace

double Curve::ValueAt(double time) const {
  if (keys.empty()) return 0.0;
  if (keys.size() == 1) return keys.front().value;
  if (time < keys.front().time || time > keys.back().time) return ValueBeyond(*this, time);
  return ValueWithin(*this, time);
}

const CurveKey* Curve::FindKey(double time) const {
  const auto place =
      std::lower_bound(keys.begin(), keys.end(), time,
                       [](const CurveKey& key, double wanted) { return key.time < wanted; });
  return place != keys.end() && place->time == time ? &*place : nullptr;
}

bool Curve::SetTangents(double time, std::optional<Tangent> in, std::optional<Tangent> out) {
  const CurveKey* const found = FindKey(time);
  if (found == nullptr) return false;
  CurveKey& key = keys[static_cast<std::size_t>(found - keys.data())];
  const Tangent oldIn = key.inType;
  const Tangent oldOut = key.outType;
  key.inType = in.value_or(key.inType);
  key.outType = out.value_or(key.outType);
  return key.inType != oldIn || key.outType != oldOut;
}

void Curve::SetKey(double time, double value) {
  const auto place =
      std::lower_bound(keys.begin(), keys.end(), time,
                       [](const CurveKey& key, double wanted) { return key.time < wanted; });
  if (place != keys.end() && place->time == time) {
    place->value = value;
    return;
  }
  CurveKey key;
  key.time = time;
  key.value = value;
  keys.insert(place, key);
}

}  // namespace lipvane::standalone
