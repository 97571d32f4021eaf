#include "lipvane/engine/relative_poses.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <type_traits>

#include "lipvane/engine/interpolation.h"

namespace lipvane {
namespace {

using wide::kBlock;

static_assert(std::is_trivially_copyable_v<TIndexedBone> &&
                  sizeof(TIndexedBone) == wide::kRow * sizeof(float),
              "bones are compared and blended as rows of numbers");

/// How far the squared length of an ordinary neutral rotation may be from 1. Files of six digits
/// are far within.
constexpr double kOddSquaredLength = 0.01;

bool AreEqual(const TIndexedBone* a, const TIndexedBone* b, std::size_t count) {
  return std::memcmp(a, b, count * sizeof *a) == 0;
}

bool IsFinite(const TIndexedBone& bone) {
  const Vector3& t = bone.translation;
  const Quaternion& r = bone.rotation;
  // A sum of squares is finite just when all are: none is negative.
  return std::isfinite(double{t.x} * t.x + double{t.y} * t.y + double{t.z} * t.z +
                       double{r.w} * r.w + double{r.x} * r.x + double{r.y} * r.y +
                       double{r.z} * r.z);
}

double SquaredLength(const Quaternion& q) {
  return double{q.w} * q.w + double{q.x} * q.x + double{q.y} * q.y + double{q.z} * q.z;
}

/// In single precision, as _Blend decides by it.
float Cosine(const Quaternion& a, const Quaternion& b) {
  return a.w * b.w + a.x * b.x + a.y * b.y + a.z * b.z;
}

/// At length 1, rounded as _Blend rounds it.
Quaternion Unit(const Quaternion& q) {
  const float scale = 1.0F / std::sqrt(Cosine(q, q));
  return {q.w * scale, q.x * scale, q.y * scale, q.z * scale};
}

/// conjugate(a) * b / divisor.
Quaternion Relative(const Quaternion& a, const Quaternion& b, double divisor) {
  const double w = double{a.w} * b.w + double{a.x} * b.x + double{a.y} * b.y + double{a.z} * b.z;
  const double x = double{a.w} * b.x - double{a.x} * b.w - double{a.y} * b.z + double{a.z} * b.y;
  const double y = double{a.w} * b.y + double{a.x} * b.z - double{a.y} * b.w - double{a.z} * b.x;
  const double z = double{a.w} * b.z - double{a.x} * b.y + double{a.y} * b.x - double{a.z} * b.w;
  return {static_cast<float>(w / divisor), static_cast<float>(x / divisor),
          static_cast<float>(y / divisor), static_cast<float>(z / divisor)};
}

void SetBone(wide::BoneBlock& block, std::size_t lane, const Vector3& t, const Quaternion& r) {
  block.tx[lane] = t.x;
  block.ty[lane] = t.y;
  block.tz[lane] = t.z;
  block.rw[lane] = r.w;
  block.rx[lane] = r.x;
  block.ry[lane] = r.y;
  block.rz[lane] = r.z;
}

}  // namespace

RelativePoses::RelativePoses(TBonePose& start, std::vector<TBonePose>& poses, std::size_t bones,
                             const RelativePoses* before)
    : bones_(bones), poses_(poses.size()) {
  const bool isRelated = before != nullptr && before->bones_ == bones_ &&
                         before->poses_ == poses_ && before->IsUnchanged(start, poses_);
  if (isRelated) {
    *this = *before;
  } else {
    const std::size_t blocks = (bones_ + kBlock - 1) / kBlock;
    copies_.resize((poses_ + 1) * bones_);
    marks_.resize(poses_ + 1);
    starts_.resize(blocks);
    poseBlocks_.resize(blocks * poses_);
    turns_.resize(poses_ * bones_);
    hasArcs_.resize(poses_);
    Copy(start, poses_);
  }
  for (std::size_t pose = 0; pose < poses_; ++pose) {
    if (isRelated && IsUnchanged(poses[pose], pose)) continue;
    Copy(poses[pose], pose);
    Prepare(pose);
  }
  PrepareStarts();
}

bool RelativePoses::AreOf(TBonePose& start, std::vector<TBonePose>& poses,
                          std::size_t bones) const {
  if (bones != bones_ || poses.size() != poses_) return false;
  for (std::size_t pose = 0; pose < poses_; ++pose) {
    if (!IsUnchanged(poses[pose], pose)) return false;
  }
  return IsUnchanged(start, poses_);
}

bool RelativePoses::IsUnchanged(TBonePose& from, std::size_t pose) const {
  const ContentStamp::Mark& mark = from.Mark();
  if (mark != nullptr) return mark == marks_[pose];
  return AreEqual(CopyOf(pose), from.Bones().data(), bones_);
}

void RelativePoses::Copy(TBonePose& from, std::size_t pose) {
  marks_[pose] = from.Mark();
  std::copy_n(from.Bones().data(), bones_, copies_.data() + pose * bones_);
}

void RelativePoses::Prepare(std::size_t pose) {
  hasArcs_[pose] = 0;
  for (std::size_t bone = 0; bone < bones_; ++bone) {
    const TIndexedBone& from = CopyOf(poses_)[bone];
    const TIndexedBone& to = CopyOf(pose)[bone];
    const Quaternion& neutral = from.rotation;
    const double squared = SquaredLength(neutral);
    const Vector3 moved(to.translation.x - from.translation.x,
                        to.translation.y - from.translation.y,
                        to.translation.z - from.translation.z);
    Quaternion aligned = to.rotation;
    Quaternion::AlignHemisphere(aligned, neutral);
    aligned.Normalize();
    const float cosine = Cosine(neutral, aligned);

    Turn& turn = turns_[pose * bones_ + bone];
    turn = {};
    turn.isOdd = !IsFinite({moved, to.rotation, 0}) || !IsFinite(from) || cosine < 0.0F ||
                 std::abs(squared - 1.0) > kOddSquaredLength;
    Quaternion relative;
    if (cosine > kSameRotation) {
      turn.isSame = true;
    } else {
      relative = Relative(neutral, aligned, squared);
      if (!(cosine > kLinear)) {
        turn.angle = std::acos(cosine);
        turn.sine = std::sin(turn.angle);
        hasArcs_[pose] = 1;
      }
    }
    SetBone(poseBlocks_[bone / kBlock * poses_ + pose], bone % kBlock, moved, relative);
  }
}

void RelativePoses::PrepareStarts() {
  oddBones_.clear();
  for (std::size_t bone = 0; bone < bones_; ++bone) {
    const TIndexedBone& start = CopyOf(poses_)[bone];
    const Quaternion& neutral = start.rotation;
    // What a pose of weight 0 turns by: nothing, but for the rounding, which adds up over poses.
    const Quaternion inverse = neutral.Inverse();
    const Quaternion bySame = Quaternion::Multiply(inverse, neutral);
    const Quaternion byOther = Quaternion::Multiply(inverse, Unit(neutral));
    Quaternion rotation = neutral;
    bool isOdd = false;
    for (std::size_t pose = 0; pose < poses_; ++pose) {
      const Turn& turn = turns_[pose * bones_ + bone];
      rotation *= turn.isSame ? bySame : byOther;
      isOdd = isOdd || turn.isOdd;
    }
    if (isOdd) oddBones_.push_back(static_cast<int>(bone));
    // A first difference of 0 makes -0 to 0.
    const float zero = 0.0F;
    SetBone(starts_[bone / kBlock].bones, bone % kBlock,
            {start.translation.x + zero, start.translation.y + zero, start.translation.z + zero},
            rotation);
    // Nothing is near to what is no number: an odd bone is not unsure, too.
    starts_[bone / kBlock].squaredLength[bone % kBlock] =
        isOdd ? std::numeric_limits<float>::quiet_NaN()
              : static_cast<float>(SquaredLength(neutral));
  }
}

std::vector<wide::ShareBlock> RelativePoses::Shares(std::size_t pose, float weight) const {
  std::vector<wide::ShareBlock> shares(starts_.size());
  for (std::size_t bone = 0; bone < bones_; ++bone) {
    const Turn& turn = turns_[pose * bones_ + bone];
    float& ofStart = shares[bone / kBlock].ofStart[bone % kBlock];
    float& ofPose = shares[bone / kBlock].ofPose[bone % kBlock];
    ofStart = 1.0F - weight;
    ofPose = weight;
    if (turn.sine != 0.0F) {
      ofStart = std::sin(ofStart * turn.angle) / turn.sine;
      ofPose = std::sin(ofPose * turn.angle) / turn.sine;
    }
  }
  return shares;
}

void RelativePoses::Blend(const std::vector<float>& weights, std::vector<TIndexedBone>& blended,
                          std::vector<int>& left) const {
  std::vector<std::vector<wide::ShareBlock>> arcs;
  std::vector<const wide::ShareBlock*> shares;
  for (std::size_t pose = 0; pose < poses_; ++pose) {
    if (hasArcs_[pose] == 0 || weights[pose] == 0.0F) continue;
    shares.resize(poses_);
    arcs.push_back(Shares(pose, weights[pose]));
    shares[pose] = arcs.back().data();
  }
  left.resize(bones_);
  left.resize(
      wide::BestLoops().blend({starts_.data(), poseBlocks_.data(), poses_, weights.data(),
                               shares.empty() ? nullptr : shares.data(), blended.data(), bones_},
                              left.data()));
  left.insert(left.end(), oddBones_.begin(), oddBones_.end());
}

}  // namespace lipvane
