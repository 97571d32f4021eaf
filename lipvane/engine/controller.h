#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "lipvane/engine/animation.h"
#include "lipvane/engine/bone_pose.h"
#include "lipvane/engine/expression.h"
#include "lipvane/engine/frame_composer.h"
#include "lipvane/engine/trail.h"

namespace lipvane {

/// A face: its rig, its expressions and its animations; composes the final pose for any moment.
///
/// To play: fill the rig, add expressions and animations, call InitializeBones once with the pose
/// that is to hold the results, then UpdateFacialAnim for every frame. Pointers that it returns are
/// valid until something is added to or deleted from the same list. Copies are deep.
class TController {
 public:
  int revision = 2;
  std::string name;
  std::string headBoneName;

  TController() = default;
  TController(const TController&) = default;
  TController(TController&&) noexcept = default;
  TController& operator=(const TController&) = default;
  TController& operator=(TController&&) noexcept = default;
  ~TController() noexcept(!kDestructorsRaise);

  /// The rig, for the readers to fill. Never null.
  TBonePoseInfo* BonePoseInfo() { return &bonePoseInfo_; }
  /// Replaces the rig by a copy.
  void SetBonePoseInfo(const TBonePoseInfo& bonePoseInfo);

  /// Appends a copy.
  void AddExpression(const TExpressionInfo& expression);
  /// The first expression of exactly this name, or null.
  TExpressionInfo* GetExpression(const std::string& expressionName);
  /// Expression `i`, or null.
  TExpressionInfo* GetExpression(int i);
  /// Deletes the first expression of exactly this name, if there is one.
  void DeleteExpression(std::string expressionName);
  int ExpressionCount() const { return static_cast<int>(expressions_.size()); }

  /// Appends a copy and digests it.
  void AddAnimation(const TAnimation& animation);
  /// Animation `i`, or null.
  TAnimation* GetAnimation(int i);
  /// Deletes animation `i`, if there is one.
  void DeleteAnimation(int i);
  int AnimationCount() const { return static_cast<int>(animations_.size()); }
  /// The sum of the animations' lengths.
  double TotalAnimTime() const;

  /// True once an animation was added or deleted or an expression deleted.
  bool AnimationsChanged() const { return animationsChanged_; }

  /// Shapes `out`: one default bone for every outside identifier of the rig's bones and then of the
  /// expressions' bones, each once, in the order of first sight, as its boneIndex.
  void InitializeBones(TBonePose& out);

  /// One frame: samples the animation at a time, blends the rig and the expressions and composes
  /// `out`. `values` holds the weights of the speech targets' poses and is kept between frames by
  /// the caller. True when the time lies outside of the animation; then `values` stay as they were
  /// and the frame is composed from them.
  bool UpdateFacialAnim(TAnimation& animation, double time, std::vector<double>& values,
                        TBonePose& out);

  /// Composes every bone of `out` from the neutral pose, the expressions' blended bones and
  /// weights, and the rig's blended bones with the weight that the expressions leave. Weights are
  /// normalised when the sum of those that concern a bone exceeds 1. A bone that nothing moves
  /// stays as it is; without a neutral pose, all of them.
  void FinalBlend(TBonePose& out);

  /// The rig's pose when nothing is weighted. Its rotations may have the opposite sign.
  TBonePose GetNeutralPose();
  /// The same without its last bone, which rigs make the head.
  TBonePose GetNeutralPoseWithoutHeadBone();

 private:
  TBonePose BlendedNeutralPose(std::size_t bonesLeftOut);

  bool animationsChanged_ = false;
  TBonePoseInfo bonePoseInfo_;
  std::vector<TExpressionInfo> expressions_;
  std::vector<TAnimation> animations_;
  FrameComposer composer_;
};

}  // namespace lipvane
