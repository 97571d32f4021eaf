#pragma once

#include <string>
#include <vector>

#include "lipvane/engine/bone_pose.h"
#include "lipvane/engine/trail.h"

namespace lipvane {

/// A movement of its own beside the speech, with bones and poses of its own: a blink, a raised
/// eyebrow. Its poses are absolute transforms.
struct TExpressionInfo : TBonePoseInfo {
  /// By which expression tracks and the controller find it.
  std::string name;
  /// How much of it shows; the controller writes it for every frame.
  double weight = 0.0;

  TExpressionInfo();
  TExpressionInfo(const TExpressionInfo&) = default;
  TExpressionInfo(TExpressionInfo&&) noexcept = default;
  TExpressionInfo& operator=(const TExpressionInfo&) = default;
  TExpressionInfo& operator=(TExpressionInfo&&) noexcept = default;
  ~TExpressionInfo() noexcept(!kDestructorsRaise);

  /// As TBonePoseInfo::Blend.
  void Blend(std::vector<double>& weights);
  /// Fills blendedBones: the reference pose plus every pose's weighted difference from it, or, when
  /// `singlePose` is set, the first pose outright, whatever the weights. A reference pose that is
  /// too short grows; without one nothing happens. Weights are in pose order, grown as by
  /// TBonePoseInfo::Blend.
  void Blend(TBonePose* reference, std::vector<double>& weights, bool singlePose);
};

}  // namespace lipvane
