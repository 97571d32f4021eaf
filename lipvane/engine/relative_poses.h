#pragma once

#include <cstddef>
#include <vector>

#include "lipvane/engine/bone_pose.h"
#include "lipvane/engine/wide/blend_loops.h"

namespace lipvane {

/// Poses in the form that blends fastest: relative to the pose that they start from, and several
/// bones side by side.
///
/// One pose turns a bone from its neutral rotation N (of length n) by inverse(N) * D, where D lies
/// between N and the aligned pose P. With H = conjugate(N) * P / n^2, known before any weight is,
/// that product is -n * Unit((1 - w) * identity + w * H); so a step needs one product instead of
/// two, nothing is aligned or normalised twice, and a pose of weight 0 costs nothing: the factors
/// -n of all poses are part of what a blend starts from, which is what poses of weight 0 alone make
/// of N step by step, to the bit. Where D is N itself, H is the identity and the factor is -n^2.
/// What differs from the plain way (_Blend) is the rounding of the poses that have a weight.
class RelativePoses {
 public:
  /// Of the first `bones` bones of each pose, of which every one has as many. What `before` has of
  /// the same poses is taken over; it may be null.
  RelativePoses(TBonePose& start, std::vector<TBonePose>& poses, std::size_t bones,
                const RelativePoses* before);

  /// Whether they are relative to just this start and of just these poses: by the poses' marks, or
  /// number for number where somebody holds a reference to a bone.
  bool AreOf(TBonePose& start, std::vector<TBonePose>& poses, std::size_t bones) const;

  /// Fills the transforms of `blended`, a bone each. The weights are one a pose and none exceeds
  /// kMostWeight either way. `left` gets the bones whose result does not hold, which are to be
  /// blended step by step: the odd ones (a neutral rotation far from unit length, a pose that
  /// cannot be brought into its hemisphere, numbers that are not finite), known before any weight
  /// is, and the unsure ones, whose result is so near to a bound of interpolation.h that rounding
  /// might take a controller across it.
  void Blend(const std::vector<float>& weights, std::vector<TIndexedBone>& blended,
             std::vector<int>& left) const;

  /// Far beyond what is animated; with more, rounding would differ by more than 5e-6.
  static constexpr float kMostWeight = 4.0F;
  /// So do more poses: the rounding of each turns on what those with a weight have turned.
  static constexpr std::size_t kMostPoses = 32;

 private:
  /// What a pose does to a bone beyond its relative rotation.
  struct Turn {
    bool isSame = false;  ///< D is N itself
    float angle = 0.0F;   ///< between N and P where D goes along the arc, and its sine; else 0
    float sine = 0.0F;
    bool isOdd = false;
  };

  // The start is what comes after the last pose.
  /// Whether `from` still is what was copied of this pose.
  bool IsUnchanged(TBonePose& from, std::size_t pose) const;
  /// Copies the bones and the mark of a pose.
  void Copy(TBonePose& from, std::size_t pose);
  const TIndexedBone* CopyOf(std::size_t pose) const { return copies_.data() + pose * bones_; }
  /// Fills the blocks and turns of a pose from its copy.
  void Prepare(std::size_t pose);
  /// Fills the starts, which hold the factors of all poses, and finds the odd bones.
  void PrepareStarts();
  /// The shares of a pose that goes along the arc for some bones.
  std::vector<wide::ShareBlock> Shares(std::size_t pose, float weight) const;

  std::size_t bones_;
  std::size_t poses_;
  std::vector<TIndexedBone> copies_;       // all bones of each pose, then of the start
  std::vector<ContentStamp::Mark> marks_;  // each pose, then the start
  std::vector<wide::StartBlock> starts_;
  std::vector<wide::BoneBlock> poseBlocks_;  // all poses of each block of bones
  std::vector<Turn> turns_;                  // all bones of each pose
  std::vector<char> hasArcs_;                // each pose: whether a bone of it goes along the arc
  std::vector<int> oddBones_;
};

}  // namespace lipvane
