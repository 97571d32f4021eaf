#pragma once

#include <vector>

#include "lipvane/engine/bone_pose.h"
#include "lipvane/engine/bone_routes.h"
#include "lipvane/engine/expression.h"

namespace lipvane {

class StepBatch;

/// Composes a controller's output pose of the rig's neutral pose, its blended bones and those of
/// the expressions. What it holds between frames only saves time.
class FrameComposer {
 public:
  /// One frame; see TController::FinalBlend. The rig has a neutral pose.
  void Compose(TBonePoseInfo& rig, std::vector<TExpressionInfo>& expressions, TBonePose& out);

 private:
  /// An output bone on its way.
  struct Progress {
    const TIndexedBone* base = nullptr;
    TIndexedBone* out = nullptr;
    float weightSum = 0.0F;  ///< of all expressions that have the bone
    float taken = 0.0F;      ///< of it, by what has been added; single precision decides at 1
    bool isBegun = false;    ///< whether anything moves it; otherwise it stays as it is

    void Add(const TIndexedBone& target, float weight, StepBatch& steps);
  };

  void AddExpression(TExpressionInfo& expression, const BoneRoutes::Routes& routes,
                     StepBatch& steps);
  void AddSpeech(TBonePoseInfo& rig, const BoneRoutes::Routes& routes, StepBatch& steps);

  BoneRoutes routes_;
  std::vector<Progress> bones_;  // of the frame at hand; kept so that a frame need not allocate
};

}  // namespace lipvane
