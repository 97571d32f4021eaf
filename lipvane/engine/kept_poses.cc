#include "lipvane/engine/kept_poses.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>

#include "lipvane/engine/relative_poses.h"

namespace lipvane {

const std::vector<int>& KeptPoses::Blend(TBonePose& start, std::vector<TBonePose>& poses,
                                         const std::vector<double>& weights, std::size_t bones,
                                         std::vector<TIndexedBone>& blended) {
  weights_.assign(poses.size(), 0.0F);
  for (std::size_t i = 0; i < std::min(weights.size(), poses.size()); ++i)
    weights_[i] = static_cast<float>(weights[i]);
  const auto isServed = [](float weight) {
    return std::abs(weight) <= RelativePoses::kMostWeight;  // not what is no number
  };
  // A negative weight of the neutral pose leaves a -0 of its translations what it is.
  const bool areServed = poses.size() <= RelativePoses::kMostPoses && !std::signbit(weights_[0]) &&
                         std::all_of(weights_.begin(), weights_.end(), isServed);
  if (!areServed) {
    left_.resize(bones);
    std::iota(left_.begin(), left_.end(), 0);
    return left_;
  }
  if (poses_ == nullptr || !poses_->AreOf(start, poses, bones)) {
    poses_ = std::make_shared<const RelativePoses>(start, poses, bones, poses_.get());
  }
  poses_->Blend(weights_, blended, left_);
  return left_;
}

}  // namespace lipvane
