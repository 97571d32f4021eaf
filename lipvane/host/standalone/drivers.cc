#include "lipvane/host/standalone/drivers.h"

#include <array>
#include <cmath>
#include <utility>

#include "lipvane/host/standalone/curve_keys.h"

namespace lipvane::standalone {
namespace {

constexpr double kDegreesPerRadian = 1.0 / kRadiansPerDegree;

}  // namespace

bool Drivers::IsTimeCurve(ItemId item) const {
  if (data_.IsMissing(item) || !data_.TypeOf(item).isTimeCurve) return false;
  return data_.connections.count({item, plug::kInput}) == 0;
}

double Drivers::ImplicitFactor(char curveKind, Plug destination) const {
  // Where units do not agree the host puts a conversion between: a plain number means degrees.
  const bool isAngle = UnitOf(destination.code) == Unit::kAngle;
  if ((curveKind == 'A') == isAngle) return 1.0;
  return isAngle ? kRadiansPerDegree : kDegreesPerRadian;
}

Drivers::Source Drivers::Find(Plug plug) const {
  Source result;
  bool isConverted = false;
  Plug at = plug;
  for (int step = 0; step < kMaxDriverSteps; ++step) {
    const auto found = data_.connections.find(at);
    if (found == data_.connections.end()) {
      if (step > 0) result.driver = Driver::kOther;
      return result;
    }
    const Plug source = found->second;
    result.item = source.item;
    result.driver = Driver::kOther;
    if (data_.IsMissing(source.item)) return result;
    const TypeInfo& type = data_.TypeOf(source.item);
    if (IsTimeCurve(source.item) && source.code == plug::kOutput) {
      if (!isConverted) result.factor *= ImplicitFactor(type.curveKind, plug);
      // Nothing could be keyed through a factor that loses the value.
      result.isLost = !std::isfinite(result.factor) || result.factor == 0.0;
      if (!result.isLost) result.driver = Driver::kCurve;
      return result;
    }
    if (type.nodeClass == NodeClass::kCharacter && source.code >= plug::kLinearElement &&
        source.code != plug::kUnknown) {
      at = source;
    } else if (type.nodeClass == NodeClass::kUnitConversion && source.code == plug::kOutput) {
      // Deliberate: keys are set through it here, where the file tells its factor. The plug-in does
      // not learn that from Maya, and refuses.
      result.factor *= data_.ValueOf({source.item, plug::kFactor});
      isConverted = true;
      at = {source.item, plug::kInput};
    } else {
      return result;
    }
  }
  return result;
}

Drivers::Value Drivers::Evaluate(Plug plug, double frame) {
  int stepsLeft = kMaxDriverSteps;
  return Follow(plug, frame, stepsLeft);
}

Drivers::Value Drivers::Follow(Plug plug, double frame, int& stepsLeft) {
  const auto found = data_.connections.find(plug);
  if (found == data_.connections.end()) return {data_.ValueOf(plug), kNoItem};
  const Plug source = found->second;
  // Connections may form a ring, and blends a tree of rings.
  if (--stepsLeft <= 0) return {data_.ValueOf(plug), source.item};
  Value value = FollowSource(source, plug, frame, stepsLeft);
  if (value.unread != kNoItem) value.value = data_.ValueOf(plug);
  return value;
}

Drivers::Value Drivers::FollowSource(Plug source, Plug destination, double frame, int& stepsLeft) {
  const Value unread{0.0, source.item};
  if (data_.IsMissing(source.item) || source.code == plug::kUnknown) return unread;
  const TypeInfo& type = data_.TypeOf(source.item);
  switch (type.nodeClass) {
    case NodeClass::kCurve: {
      if (!IsTimeCurve(source.item) || source.code != plug::kOutput) return unread;
      CurveRecord& record = Load(data_.curves[source.item]);
      if (record.isNew && record.curve.keys.empty()) return {data_.ValueOf(destination), kNoItem};
      // A conversion between says itself what becomes of the value.
      const bool isConverted = destination.code == plug::kInput;
      const double factor = isConverted ? 1.0 : ImplicitFactor(type.curveKind, destination);
      return {record.curve.ValueAt(frame) * factor, kNoItem};
    }
    case NodeClass::kCharacter:
      return Follow(source, frame, stepsLeft);
    case NodeClass::kUnitConversion: {
      if (source.code != plug::kOutput) return unread;
      Value value = Follow({source.item, plug::kInput}, frame, stepsLeft);
      value.value *= data_.ValueOf({source.item, plug::kFactor});
      return value;
    }
    case NodeClass::kPairBlend:
      return Blend(source, frame, stepsLeft);
    case NodeClass::kOther:
      break;
  }
  const std::uint32_t node = data_.items[source.item].node;
  const bool isTransform = node < hierarchy_.nodes.size() && data_.IsDag(source.item) &&
                           hierarchy_.nodes[node].kind != NodeKind::kShape;
  if (!isTransform || source.code >= plug::kTransformCount) return unread;
  return Follow(source, frame, stepsLeft);
}

Drivers::Value Drivers::Blend(Plug output, double frame, int& stepsLeft) {
  using namespace plug;
  const Value unread{0.0, output.item};
  if (output.code < kOutTranslate || output.code >= kWeight) return unread;
  const bool isRotation = output.code >= kOutRotate;
  const PlugCode axis = output.code - (isRotation ? kOutRotate : kOutTranslate);
  const Plug first{output.item, (isRotation ? kInRotate1 : kInTranslate1) + axis};
  const Plug second{output.item, (isRotation ? kInRotate2 : kInTranslate2) + axis};

  const double mode =
      data_.ValueOf({output.item, isRotation ? kRotateMode : kTranslateMode + axis});
  if (mode == 1.0) return Follow(first, frame, stepsLeft);
  if (mode == 2.0) return Follow(second, frame, stepsLeft);
  const Value weight = Follow({output.item, kWeight}, frame, stepsLeft);
  if (weight.unread != kNoItem) return weight;
  if (weight.value == 0.0) return Follow(first, frame, stepsLeft);
  if (weight.value == 1.0) return Follow(second, frame, stepsLeft);
  // Between two quaternions it is not a matter of one angle any more.
  if (isRotation && data_.ValueOf({output.item, kRotInterpolation}) != 0.0) return unread;
  const Value a = Follow(first, frame, stepsLeft);
  if (a.unread != kNoItem) return a;
  const Value b = Follow(second, frame, stepsLeft);
  if (b.unread != kNoItem) return b;
  return {a.value * (1.0 - weight.value) + b.value * weight.value, kNoItem};
}

const Drivers::Plan& Drivers::PlanOf(ItemId item) {
  const auto known = plans_.find(item);
  if (known != plans_.end()) return known->second;
  Plan plan;
  plan.values.isJoint = data_.TypeOf(item).isJoint;
  for (PlugCode code = 0; code < plug::kTransformCount; ++code) {
    const Plug plug{item, code};
    SetComponent(plan.values, code, data_.ValueOf(plug));
    if (data_.connections.count(plug) == 0) continue;
    const Source source = Find(plug);
    CurveRecord* curve = nullptr;
    if (source.driver == Driver::kCurve) curve = &Load(data_.curves[source.item]);
    plan.inputs.push_back({code, curve, source.factor});
  }
  return plans_.emplace(item, std::move(plan)).first->second;
}

CurveRecord& Drivers::Load(CurveRecord& record) {
  if (record.isLoaded) return record;
  KeyTable table;
  const std::string_view text = data_.text;
  for (const Span& span : record.keyStatements) {
    AddKeyStatement(text.substr(span.begin, span.end - span.begin - 1), data_.page, table);
  }
  SortKeys(table);
  record.curve.keys = MakeKeys(table, record.valueFactor, record.tangent);
  record.isLoaded = true;
  return record;
}

void SetComponent(TransformValues& values, PlugCode code, double value) {
  using namespace plug;
  struct Place {
    PlugCode first;
    Vector TransformValues::*vector;
  };
  static constexpr std::array kPlaces{
      Place{kTranslate, &TransformValues::translate},
      Place{kRotate, &TransformValues::rotate},
      Place{kScale, &TransformValues::scale},
      Place{kShear, &TransformValues::shear},
      Place{kRotateAxis, &TransformValues::rotateAxis},
      Place{kJointOrient, &TransformValues::jointOrient},
      Place{kInverseScale, &TransformValues::inverseScale},
      Place{kRotatePivot, &TransformValues::rotatePivot},
      Place{kRotatePivotTranslate, &TransformValues::rotatePivotTranslate},
      Place{kScalePivot, &TransformValues::scalePivot},
      Place{kScalePivotTranslate, &TransformValues::scalePivotTranslate},
  };
  if (code == kRotateOrder) {
    const bool isKnown = value >= 0.0 && value <= 5.0;
    values.rotateOrder =
        isKnown ? static_cast<RotateOrder>(static_cast<int>(value)) : RotateOrder::kXyz;
    return;
  }
  if (code == kSegmentScaleCompensate) {
    values.segmentScaleCompensate = value != 0.0;
    return;
  }
  for (const Place& place : kPlaces) {
    if (code >= place.first && code < place.first + 3) {
      (values.*place.vector)[code - place.first] = value;
    }
  }
}

}  // namespace lipvane::standalone
