#pragma once

#include <cfloat>
#include <cstddef>
#include <cstring>

#include "lipvane/engine/interpolation.h"
#include "lipvane/engine/wide/blend_loops.h"

/// The loops, on whatever kind of lanes: `Lanes` is one of those in lanes_*.h, kCount floats of
/// which operators act on each. What is no template is static: each file that is built for other
/// instructions has its own.
namespace lipvane::wide {

/// A rotation in every lane; the formulas of Quaternion, term by term in the same order.
template <typename Lanes>
struct Rotations {
  Lanes w, x, y, z;

  friend Rotations operator+(const Rotations& a, const Rotations& b) {
    return {a.w + b.w, a.x + b.x, a.y + b.y, a.z + b.z};
  }
  friend Rotations operator-(const Rotations& a, const Rotations& b) {
    return {a.w - b.w, a.x - b.x, a.y - b.y, a.z - b.z};
  }
  friend Rotations operator*(const Lanes& k, const Rotations& a) {
    return {k * a.w, k * a.x, k * a.y, k * a.z};
  }
  friend Rotations operator/(const Rotations& a, const Lanes& k) {
    return {a.w / k, a.x / k, a.y / k, a.z / k};
  }
  friend Lanes Dot(const Rotations& a, const Rotations& b) {
    return a.w * b.w + a.x * b.x + a.y * b.y + a.z * b.z;
  }
  /// The Hamilton product.
  friend Rotations Product(const Rotations& a, const Rotations& b) {
    return {a.w * b.w - a.x * b.x - a.y * b.y - a.z * b.z,
            a.w * b.x + a.x * b.w + a.y * b.z - a.z * b.y,
            a.w * b.y - a.x * b.z + a.y * b.w + a.z * b.x,
            a.w * b.z + a.x * b.y - a.y * b.x + a.z * b.w};
  }
  friend Rotations Select(const typename Lanes::Mask& mask, const Rotations& a,
                          const Rotations& b) {
    return {Select(mask, a.w, b.w), Select(mask, a.x, b.x), Select(mask, a.y, b.y),
            Select(mask, a.z, b.z)};
  }
};

/// One of a row, of which the last is no float.
static inline float Number(const float* at) {
  float number = 0.0F;
  std::memcpy(&number, at, sizeof number);
  return number;
}

/// A bone in every lane. `row(i)` is that of lane i.
template <typename Lanes>
struct Bones {
  Lanes tx, ty, tz;
  Rotations<Lanes> rotation;

  template <typename Row>
  static Bones Load(const Row& row) {
    Lanes c[kRow];
    Lanes::LoadRows(row, c);
    return {c[0], c[1], c[2], {c[3], c[4], c[5], c[6]}};
  }
  /// The rows' indices stay.
  template <typename Row>
  void Store(const Row& row) const {
    Lanes c[kRow] = {tx, ty, tz, rotation.w, rotation.x, rotation.y, rotation.z, tx};
    c[kIndex] = Lanes::Each([&](std::size_t i) { return Number(row(i) + kIndex); });
    Lanes::StoreRows(c, row);
  }
};

static inline float* Row(TIndexedBone* bone) {
  return reinterpret_cast<float*>(bone);
}

static inline const float* Row(const TIndexedBone* bone) {
  return reinterpret_cast<const float*>(bone);
}

/// The bones of a block from lane `first` on.
template <typename Lanes>
Bones<Lanes> LoadBlock(const BoneBlock& block, std::size_t first) {
  const auto load = [&](const float* component) { return Lanes::Load(component + first); };
  return {load(block.tx),
          load(block.ty),
          load(block.tz),
          {load(block.rw), load(block.rx), load(block.ry), load(block.rz)}};
}

/// Where the way from a neutral rotation to one that is `turn` away from it is so near to a bound
/// (the other hemisphere, arc to chord, chord to nothing at all) that another rounding of the turn
/// may take it across, and that makes more than a rounding's difference. The cosine between the two
/// is |neutral| * turn.w / |turn|; it is compared squared and times |turn|^2, without a root and a
/// division.
template <typename Lanes>
typename Lanes::Mask IsUnsure(const Rotations<Lanes>& turn, const Lanes& neutralSquared) {
  const auto all = [](float value) { return Lanes::All(value); };
  // What rounding does to a cosine, which changes little near 1; and a sine without meaning.
  constexpr float kNear = 5e-6F;
  constexpr float kNearSame = 6e-7F;
  constexpr float kNothing = 2e-6F;
  const Lanes scalarSquared = turn.w * turn.w;
  const Lanes vectorSquared = turn.x * turn.x + turn.y * turn.y + turn.z * turn.z;
  const Lanes turnSquared = scalarSquared + vectorSquared;
  const Lanes cosineSquared = neutralSquared * scalarSquared;  // times turnSquared
  const auto isBelow = [&](float bound) {
    return cosineSquared < all(bound * bound) * turnSquared;
  };
  const auto isNear = [&](float bound, float distance) {
    return (all((bound - distance) * (bound - distance)) * turnSquared < cosineSquared) &
           isBelow(bound + distance);
  };
  const auto isTurned = all(kNothing * kNothing) * turnSquared < vectorSquared;
  return (isNear(kSameRotation, kNearSame) & isTurned) | isNear(kLinear, kNear) | isBelow(kNear);
}

/// Blends as many bones of one block as there are lanes, from the `first` on, and tells which are
/// unsure.
template <typename Lanes>
typename Lanes::Mask BlendBlock(const RelativeBlend& blend, std::size_t block, std::size_t first,
                                Bones<Lanes>& sum) {
  const StartBlock& start = blend.starts[block];
  const BoneBlock* poses = blend.poses + block * blend.poseCount;
  sum = LoadBlock<Lanes>(start.bones, first);
  Rotations<Lanes> turn = {Lanes::All(1.0F), Lanes::All(0.0F), Lanes::All(0.0F), Lanes::All(0.0F)};
  for (std::size_t p = 0; p < blend.poseCount; ++p) {
    if (blend.weights[p] == 0.0F) continue;
    const Lanes weight = Lanes::All(blend.weights[p]);
    Lanes ofStart = Lanes::All(1.0F) - weight;
    Lanes ofPose = weight;
    if (blend.shares != nullptr && blend.shares[p] != nullptr) {
      ofStart = Lanes::Load(blend.shares[p][block].ofStart + first);
      ofPose = Lanes::Load(blend.shares[p][block].ofPose + first);
    }
    const Bones<Lanes> pose = LoadBlock<Lanes>(poses[p], first);
    sum.tx = sum.tx + pose.tx * weight;
    sum.ty = sum.ty + pose.ty * weight;
    sum.tz = sum.tz + pose.tz * weight;
    // From the identity to the pose's relative rotation.
    Rotations<Lanes> added = ofPose * pose.rotation;
    added.w = ofStart + added.w;
    const Lanes scale = Lanes::All(1.0F) / Sqrt(Dot(added, added));
    turn = Product(turn, scale * added);
  }
  sum.rotation = Product(sum.rotation, turn);
  return IsUnsure(turn, Lanes::Load(start.squaredLength + first));
}

template <typename Lanes>
std::size_t Blend(const RelativeBlend& blend, int* unsure) {
  std::size_t unsureCount = 0;
  float spare[kRow] = {};
  for (std::size_t at = 0; at < blend.boneCount; at += Lanes::kCount) {
    Bones<Lanes> sum;
    const unsigned bits = BlendBlock<Lanes>(blend, at / kBlock, at % kBlock, sum).Bits();
    sum.Store([&](std::size_t i) {
      return at + i < blend.boneCount ? Row(blend.bones) + (at + i) * kRow : spare;
    });
    for (std::size_t i = 0; bits != 0 && i < Lanes::kCount && at + i < blend.boneCount; ++i)
      if ((bits >> i & 1U) != 0) unsure[unsureCount++] = static_cast<int>(at + i);
  }
  return unsureCount;
}

/// _Blend in every lane. Lanes that it does not serve keep their sums; those that it does are
/// returned.
template <typename Lanes>
typename Lanes::Mask AddStep(const Bones<Lanes>& target, const Bones<Lanes>& base,
                             const Lanes& weight, Bones<Lanes>& sum) {
  const auto all = [](float value) { return Lanes::All(value); };
  const Rotations<Lanes>& neutral = base.rotation;
  Rotations<Lanes> pose = target.rotation;
  const Rotations<Lanes> apart = pose - neutral;
  const Rotations<Lanes> together = pose + neutral;
  pose = Select(Dot(together, together) < Dot(apart, apart), all(-1.0F) * pose, pose);
  const Lanes squared = Dot(pose, pose);
  pose = pose / Sqrt(squared);
  const Lanes cosine = Dot(neutral, pose);
  const Rotations<Lanes> chord = (all(1.0F) - weight) * neutral + weight * pose;
  const Lanes chordSquared = Dot(chord, chord);
  const Rotations<Lanes> between =
      Select(all(kSameRotation) < cosine, neutral, (all(1.0F) / Sqrt(chordSquared)) * chord);

  const auto served = (all(FLT_MIN) < squared) & (squared < all(FLT_MAX)) &
                      (all(kLinear) < cosine) & (all(kShortestSquared) < chordSquared);
  const Rotations<Lanes> inverse = {all(-1.0F) * neutral.w, neutral.x, neutral.y, neutral.z};
  sum.rotation = Select(served, Product(sum.rotation, Product(inverse, between)), sum.rotation);
  sum.tx = Select(served, sum.tx + (target.tx - base.tx) * weight, sum.tx);
  sum.ty = Select(served, sum.ty + (target.ty - base.ty) * weight, sum.ty);
  sum.tz = Select(served, sum.tz + (target.tz - base.tz) * weight, sum.tz);
  return served;
}

template <typename Lanes>
std::size_t AddSteps(const Step* steps, std::size_t count, std::size_t* left) {
  constexpr unsigned kAll = (1U << Lanes::kCount) - 1;
  std::size_t leftCount = 0;
  for (std::size_t at = 0; at < count; at += Lanes::kCount) {
    // Lanes beyond the end do the last step once more, to the same result.
    const std::size_t last = count - at - 1;
    const auto step = [&](std::size_t i) -> const Step& {
      return steps[at + (i < last ? i : last)];
    };
    Bones<Lanes> sum = Bones<Lanes>::Load([&](std::size_t i) { return Row(step(i).from); });
    const unsigned served =
        AddStep(Bones<Lanes>::Load([&](std::size_t i) { return Row(step(i).target); }),
                Bones<Lanes>::Load([&](std::size_t i) { return Row(step(i).base); }),
                Lanes::Each([&](std::size_t i) { return step(i).weight; }), sum)
            .Bits();
    sum.Store([&](std::size_t i) { return Row(step(i).to); });
    for (std::size_t i = 0; served != kAll && i < Lanes::kCount && at + i < count; ++i)
      if ((served >> i & 1U) == 0) left[leftCount++] = at + i;
  }
  return leftCount;
}

template <typename Lanes>
inline constexpr BlendLoops kLoopsOn = {Lanes::kName, Blend<Lanes>, AddSteps<Lanes>};

}  // namespace lipvane::wide
