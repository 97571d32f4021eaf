#pragma once

#include <random>
#include <string>
#include <vector>

#include "lipvane/engine/animation.h"
#include "lipvane/engine/expression.h"

namespace lipvane::bench {

/// How far poses are turned from neutral.
enum class Turns {
  kNear,   ///< a little, as mouth shapes are: all are interpolated along the chord
  kEvery,  ///< so that every way to interpolate is taken, zero and tiny rotations among them
};

/// Makes faces of random numbers; the same seed makes the same face.
class RandomFace {
 public:
  RandomFace(unsigned seed, Turns turns) : random_(seed), turns_(turns) {}

  /// A rig of so many bones, whose identifiers count from 1, and poses.
  TBonePoseInfo Rig(int bones, int poses);
  /// An expression that moves so many of a rig's bones from `first` on; bones that the rig lacks
  /// are made.
  TExpressionInfo Expression(const std::string& name, TBonePoseInfo& rig, int first, int bones,
                             int poses);
  /// A track of `keys` keys, 20 to 180 ms apart, its values between `low` and `high`.
  TAnimationTrack Track(const std::string& name, int keys, double low, double high);
  double Uniform(double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random_);
  }

 private:
  Vector3 Place();
  Quaternion Turned(const Quaternion& from, double leastHalfAngle, double mostHalfAngle);
  Quaternion Neutral();
  Quaternion Posed(const Quaternion& neutral);

  std::mt19937 random_;
  Turns turns_;
};

}  // namespace lipvane::bench
