#pragma once

#include <cstddef>
#include <memory>
#include <vector>

namespace lipvane {

class RelativePoses;
class TBonePose;
struct TIndexedBone;

/// What a rig keeps from one blend for the next: its poses in the form that blends fastest
/// (RelativePoses). Before each use it is held against the poses, by their marks or else number for
/// number, and made anew where they differ, so that it never answers for poses that were. Copies
/// share it; it is never changed once made.
class KeptPoses {
 public:
  /// Fills the transforms of the first `bones` of `blended` with the start pose plus every pose's
  /// difference from it times its weight. All have as many bones; the weights are one a pose, or
  /// none at all for 0. Returns the bones that are left to be blended step by step.
  const std::vector<int>& Blend(TBonePose& start, std::vector<TBonePose>& poses,
                                const std::vector<double>& weights, std::size_t bones,
                                std::vector<TIndexedBone>& blended);

 private:
  std::shared_ptr<const RelativePoses> poses_;
  // Of the last blend; here so that a blend need not allocate.
  std::vector<float> weights_;
  std::vector<int> left_;
};

}  // namespace lipvane
