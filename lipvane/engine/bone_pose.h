#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "lipvane/engine/content_stamp.h"
#include "lipvane/engine/kept_poses.h"
#include "lipvane/engine/math.h"
#include "lipvane/engine/trail.h"

namespace lipvane {

/// One bone of one pose. There is no scale.
struct TIndexedBone {
  Vector3 translation;
  Quaternion rotation;
  /// Its place among the bone names; in a controller's output pose its outside identifier.
  int boneIndex = 0;

  TIndexedBone() : TIndexedBone({}, {}, 0) {}
  TIndexedBone(const Vector3& translationOfBone, const Quaternion& rotationOfBone, int index)
      : translation(translationOfBone), rotation(rotationOfBone), boneIndex(index) {
    Trail("TIndexedBone::TIndexedBone", [] {});
  }
};

/// One pose: a bone transform for every bone, in bone order.
class TBonePose {
 public:
  /// Appends a copy.
  void AddBone(const TIndexedBone& bone);
  /// Makes room for so many bones.
  void Reserve(int count) { bones_.reserve(static_cast<std::size_t>(count)); }
  /// Bone `i`. A pose that is too short grows with default bones; a negative position is
  /// std::out_of_range. Valid until the pose grows. To read, Bones is better: once a bone is given
  /// out, every blend looks through the pose for what may have been changed.
  TIndexedBone& GetBone(int i);
  int BoneCount() const { return static_cast<int>(bones_.size()); }
  /// All of them, to be read.
  const std::vector<TIndexedBone>& Bones() const { return bones_; }
  /// Adds default bones, as GetBone would, until there are as many.
  void GrowTo(int bones);
  /// Two that are equal and not null are of equal bones. Null once GetBone has given one out.
  const ContentStamp::Mark& Mark() { return stamp_.Current(); }

 private:
  std::vector<TIndexedBone> bones_;
  ContentStamp stamp_;
};

/// The bones of a rig, their poses and what was blended last. The neutral pose comes first, then
/// the speech targets' poses, then those of the expressions.
///
/// Copies are deep. References and pointers to elements are valid until their array grows.
struct TBonePoseInfo {
  int revision = 2;
  /// A bone's position here is its index.
  std::vector<std::string> boneNames;
  /// Parallel to boneNames: what the outside calls each bone.
  std::vector<int> boneIds;
  std::vector<TBonePose> poses;
  /// What Blend made last, one element a bone.
  std::vector<TIndexedBone> blendedBones;

  TBonePoseInfo() = default;
  TBonePoseInfo(const TBonePoseInfo&) = default;
  TBonePoseInfo(TBonePoseInfo&&) noexcept = default;
  TBonePoseInfo& operator=(const TBonePoseInfo&) = default;
  TBonePoseInfo& operator=(TBonePoseInfo&&) noexcept = default;
  ~TBonePoseInfo() noexcept(!kDestructorsRaise);

  /// Appends a name; the bone has no identifier before AssignBoneIds.
  void AddBone(const std::string& name);
  /// Appends a copy.
  void AddPose(const TBonePose& pose);
  /// Empties all four arrays.
  void Clear();

  /// The name of bone `i`; empty when there is no such bone.
  std::string GetBoneName(int i) const;
  /// The outside identifier of bone `i` (0 when it was given none), or -1 when there is no such
  /// bone.
  int GetBoneIndex(int i);
  /// The position of the first bone with this identifier, or -1.
  int FindBoneIndex(int id) const;
  /// The blended bone of the first bone with this identifier, or null.
  TIndexedBone* FindBone(int id);
  /// Pose `i`. A list that is too short grows with empty poses; a negative position is
  /// std::out_of_range.
  TBonePose& GetPose(int i);

  /// Gives every bone the identifier that its name has in the map, 0 when the map lacks it.
  void AssignBoneIds(std::map<std::string, int> idByName);

  /// Fills blendedBones: the neutral pose plus every pose's difference from it times the pose's
  /// weight. Weights are in pose order, not clamped and not normalised. Missing poses, bones and
  /// weights are made, by the same rules as those of the getters; an empty `weights` means 0 for
  /// all and stays empty. Translations have the bits that steps of _Blend in the order of the poses
  /// give; rotations differ by rounding, over twenty poses by less than 5e-6 a component.
  void Blend(std::vector<double>& weights);
  /// The same by _Blend alone, which takes longer. Blend differs from it by rounding, up to 5e-6 a
  /// component of a rotation: too much for who amplifies it.
  void BlendExactly(std::vector<double>& weights);

 protected:
  /// The same from any start, which may be one of the poses; by steps of _Blend, to the bit.
  void BlendStepByStep(TBonePose& start, std::vector<double>& weights);
  /// Sets the transform of blended bone `i`; its boneIndex stays.
  void StoreBlended(int i, const Vector3& translation, const Quaternion& rotation);

 private:
  /// Makes the bones and weights that a blend lacks.
  void GrowForBlend(TBonePose& start, std::vector<double>& weights);
  /// Blends some bones by steps of _Blend, one pose after the other.
  void AddPoses(const std::vector<int>& bones, const TBonePose& start,
                const std::vector<double>& weights);

  KeptPoses kept_;
};

/// What one pose does to one bone: adds `weight` times its difference from the neutral one to the
/// accumulator. `neutralInverse` is neutralR.Inverse(); poseR is a working copy and is aligned
/// with neutralR and normalised in place.
void _Blend(const Vector3& poseT, Quaternion& poseR, const Vector3& neutralT,
            const Quaternion& neutralR, const Quaternion& neutralInverse, Vector3& accT,
            Quaternion& accR, float weight);

}  // namespace lipvane
