#pragma once

#include <array>
#include <cstddef>

#include "lipvane/engine/bone_pose.h"
#include "lipvane/host/standalone/transform.h"

/// How joints are turned, and how far from where a pose file has them.
namespace lipvane::check {

/// The rotation of a local matrix as a pose file has it: w, x, y, z with w negated.
std::array<double, 4> LocalTurn(const standalone::TransformValues& values);

/// In degrees; of whatever length the quaternions are. Not a number when one has none.
double AngleBetween(const std::array<double, 4>& a, const std::array<double, 4>& b);

struct WorstTurn {
  double degrees = 0.0;
  std::size_t pose = 0;
};

/// How far a joint that is keyed with the poses of a bone stands from them at most, as its rotate
/// order and rotate axis are not what keys are made for.
WorstTurn FindWorstTurn(const TBonePoseInfo& rig, std::size_t bone,
                        const standalone::TransformValues& joint);

}  // namespace lipvane::check
