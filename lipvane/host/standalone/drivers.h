#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "lipvane/host/standalone/hierarchy.h"
#include "lipvane/host/standalone/scene.h"
#include "lipvane/host/standalone/scene_data.h"

namespace lipvane::standalone {

/// Follows connections upstream: which curve keys a channel, and which value comes out of them.
class Drivers {
 public:
  /// Both must outlive this and stay where they are.
  Drivers(SceneData& data, const Hierarchy& hierarchy) : data_(data), hierarchy_(hierarchy) {}

  /// What stands behind a channel. A curve's values times `factor` are the channel's.
  struct Source {
    Driver driver = Driver::kNone;
    ItemId item = kNoItem;
    double factor = 1.0;
    bool isLost = false;  ///< is it kOther only because the factor leaves nothing of a curve?
  };
  Source Find(Plug plug) const;

  /// The value at an attribute, or what its connections cannot be followed beyond.
  struct Value {
    double value = 0.0;
    ItemId unread = kNoItem;
  };
  Value Evaluate(Plug plug, double frame);

  /// A transform's values that do not change, and the attributes that have an input.
  struct Plan {
    TransformValues values;
    struct Input {
      PlugCode code;
      CurveRecord* curve;  ///< null when the way is longer
      double factor;
    };
    std::vector<Input> inputs;
  };
  const Plan& PlanOf(ItemId item);
  /// Needed when an input was added to the transform.
  void ForgetPlan(ItemId item) { plans_.erase(item); }

  /// The curve with its keys read.
  CurveRecord& Load(CurveRecord& record);

 private:
  Value Follow(Plug plug, double frame, int& stepsLeft);
  Value FollowSource(Plug source, Plug destination, double frame, int& stepsLeft);
  Value Blend(Plug output, double frame, int& stepsLeft);
  bool IsTimeCurve(ItemId item) const;
  double ImplicitFactor(char curveKind, Plug destination) const;

  SceneData& data_;
  const Hierarchy& hierarchy_;
  std::unordered_map<ItemId, Plan> plans_;
};

/// Puts a value in its place in a transform's values.
void SetComponent(TransformValues& values, PlugCode code, double value);

}  // namespace lipvane::standalone
