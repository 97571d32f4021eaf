#pragma once

#include <cstddef>

/// The inner loops of blending, for several bones at once: the engine's one place for wide
/// instructions. The loops are written once (loops_on.h) on "lanes", a few floats side by side, and
/// built for each kind of lanes that a processor may have (lanes_*.h). No product and sum are fused
/// and every operation is an IEEE one, so that a bone gets the same bits on all lanes.
///
/// A bone goes in and out as a row of eight numbers, as TIndexedBone lies in memory: translation x,
/// y, z, rotation w, x, y, z and the index, which stays.
namespace lipvane {
struct TIndexedBone;
}

namespace lipvane::wide {

inline constexpr std::size_t kRow = 8;
inline constexpr std::size_t kIndex = 7;
/// Bones lie in blocks of this many, whatever the lanes, so that what is kept fits all loops.
inline constexpr std::size_t kBlock = 8;

/// Eight bones, component by component.
struct alignas(32) BoneBlock {
  float tx[kBlock], ty[kBlock], tz[kBlock];
  float rw[kBlock], rx[kBlock], ry[kBlock], rz[kBlock];
};

/// What eight bones start from.
struct StartBlock {
  BoneBlock bones;
  /// Of the neutral rotations. Not a number for bones that are never to be told unsure.
  float squaredLength[kBlock];
};

/// How much of the start and how much of the pose, for eight bones of one pose. For all bones on a
/// chord they are 1 - weight and weight; on an arc they are a bone's own.
struct alignas(32) ShareBlock {
  float ofStart[kBlock], ofPose[kBlock];
};

/// A blend of poses that are kept relative to what they start from (see RelativePoses).
struct RelativeBlend {
  const StartBlock* starts;  ///< a block of bones each
  const BoneBlock* poses;    ///< for each block of bones all poses
  std::size_t poseCount;
  const float* weights;  ///< a pose each; 0 leaves it out
  /// A pose each, a block of bones each. Null, as a whole or for a pose, where the weight says all.
  const ShareBlock* const* shares;
  TIndexedBone* bones;  ///< which get the results
  std::size_t boneCount;
};

/// One step of a blend: `to` gets `from` plus `weight` times the target's difference from the base.
struct Step {
  const TIndexedBone* target;
  const TIndexedBone* base;
  const TIndexedBone* from;
  TIndexedBone* to;
  float weight;
};

/// The loops for one kind of lanes.
struct BlendLoops {
  const char* name;
  /// Bones are unsure when the result is so near to a bound of interpolation.h that rounding might
  /// take a controller, which composes it on the neutral rotation, across. Their positions are put
  /// into `unsure`, which has room for all, and their number is returned.
  std::size_t (*blend)(const RelativeBlend& blend, int* unsure);
  /// Does the steps, none of which leads to what another names, bit for bit as _Blend does each.
  /// Those along an arc and those with odd rotations are not done: `to` gets `from` alone, their
  /// positions are put into `left`, which has room for all, and their number is returned.
  std::size_t (*addSteps)(const Step* steps, std::size_t count, std::size_t* left);
};

/// What every processor of this kind has.
const BlendLoops& BaselineLoops();
/// Lanes in plain C++, for processors that the engine knows nothing about, and for tests.
const BlendLoops& PlainLoops();
/// Eight lanes; null when the engine was built without them or the processor has none.
const BlendLoops* AvxLoops();

/// The widest that there are.
inline const BlendLoops& BestLoops() {
  const BlendLoops* avx = AvxLoops();
  return avx != nullptr ? *avx : BaselineLoops();
}

}  // namespace lipvane::wide
