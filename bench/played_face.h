#pragma once

#include <vector>

#include "bench/naive/frame.h"
#include "bench/random_face.h"
#include "lipvane/engine/controller.h"

namespace lipvane::bench {

/// The same rig for the naive reference.
naive::Rig NaiveRig(const TBonePoseInfo& rig);

/// What a face consists of.
struct FaceSize {
  int bones = 64;
  int expressionPoses = 1;
  int keys = 100;
  // How many have a weight that is not 0 all the time.
  int activeTargets = 15;
  int activeExpressions = 4;
  double lowest = 0.0;
  double highest = 0.5;
  double lowestOfExpressions = 0.0;
};

/// A face of 15 speech targets and 4 expressions, for each of which the rig has a pose beside the
/// neutral one, that plays an animation; and the same one for the naive reference.
class PlayedFace {
 public:
  PlayedFace(unsigned seed, Turns turns, const FaceSize& size);

  /// The frame at a time, in milliseconds.
  void Play(double time) { controller_.UpdateFacialAnim(animation_, time, weights_, out_); }
  void PlayNaive(double time) { naive::PlayFrame(naive_, time, naiveOut_); }

  TBonePose& Out() { return out_; }
  naive::Pose& NaiveOut() { return naiveOut_; }
  TBonePoseInfo& Rig() { return *controller_.BonePoseInfo(); }
  naive::Face& NaiveFace() { return naive_; }
  /// The end of the animation, at which its shortest track may have ended before.
  double Length() const { return animation_.length; }

 private:
  TController controller_;
  TAnimation animation_;
  std::vector<double> weights_;
  TBonePose out_;
  naive::Face naive_;
  naive::Pose naiveOut_;
};

}  // namespace lipvane::bench
