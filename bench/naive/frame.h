#pragma once

#include <vector>

#include "bench/naive/step.h"

namespace lipvane::bench::naive {

using Pose = std::vector<Bone>;

/// Bones by their identifiers, and their poses, each complete.
struct Rig {
  std::vector<int> ids;
  std::vector<Pose> poses;
  Pose blended;
};

struct Key {
  int time = 0;
  double value = 0.0;
};
using Track = std::vector<Key>;

/// An expression and what drives it.
struct Expression {
  Rig rig;
  Track track;
  double weight = 0.0;
};

struct Face {
  Rig rig;
  std::vector<Track> tracks;  ///< track i drives pose i + 1
  std::vector<Expression> expressions;
  std::vector<double> weights;  ///< of the rig's poses; those without a track stay as they are
  std::vector<int> outIds;      ///< the bones that a frame is composed of
};

/// Fills `blended` with the reference plus every pose's weighted difference from it. The weights
/// are one a pose.
void Blend(Rig& rig, const Pose& reference, const std::vector<double>& weights);

/// The value of a track with two keys or more, found by a scan from its first key.
double ValueAtTime(const Track& track, double time);

/// One frame: samples the tracks, blends the rig and the expressions and composes `out`, which has
/// a bone for every one of the face's `outIds`.
void PlayFrame(Face& face, double time, Pose& out);

}  // namespace lipvane::bench::naive
