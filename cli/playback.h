#pragma once

#include <string>
#include <vector>

#include "cli/input.h"
#include "lipvane/engine/animation.h"
#include "lipvane/engine/bone_pose.h"
#include "lipvane/engine/controller.h"
#include "lipvane/formats/phonemes.h"

namespace lipvane::cli {

/// A face and an animation for it, and the frame that was played last.
class Playback {
 public:
  /// Takes a bone pose file and an animation file. False, after saying why, when one is refused.
  bool Load(const InputFile& lbp, const InputFile& ltf, bool force);

  const PhonemeMapping& Mapping() const { return mapping_; }
  const TAnimation& Animation() const { return animation_; }
  TBonePoseInfo& Rig() { return *controller_.BonePoseInfo(); }
  std::vector<std::string> ExpressionNames();
  /// The names of the output pose's bones.
  const std::vector<std::string>& BoneNames() const { return boneNames_; }

  /// Plays the frame at a time in the animation's unit. Frames come in ascending order: weights are
  /// carried from one to the next.
  void Play(double time);

  // Of the frame.
  double Time() const { return time_; }
  /// Whether it lies inside the animation.
  bool IsInside() const { return isInside_; }
  const std::vector<double>& Weights() const { return weights_; }
  std::vector<double> ExpressionWeights();
  TBonePose& Pose() { return pose_; }

 private:
  TController controller_;
  PhonemeMapping mapping_;
  TAnimation animation_;
  std::vector<std::string> boneNames_;
  TBonePose pose_;
  std::vector<double> weights_;
  double time_ = 0.0;
  bool isInside_ = false;
};

}  // namespace lipvane::cli
