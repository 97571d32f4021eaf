// The product against the naive reference.

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstring>
#include <vector>

#include "bench/played_face.h"

namespace lipvane::bench {
namespace {

/// Rotations may differ by what a relative blend rounds otherwise. Translations are the same bits,
/// and so is what is no number.
testing::AssertionResult AreSame(const TIndexedBone& bone, const naive::Bone& expected) {
  const Vector3& t = bone.translation;
  const Quaternion& r = bone.rotation;
  const naive::Vec& et = expected.translation;
  const naive::Quat& er = expected.rotation;
  constexpr float kRounding = 5e-6F;
  const auto isBit = [](float a, float b) { return std::memcmp(&a, &b, sizeof a) == 0; };
  const auto isNear = [&](float a, float b) { return isBit(a, b) || std::abs(a - b) <= kRounding; };
  if (isBit(t.x, et.x) && isBit(t.y, et.y) && isBit(t.z, et.z) && isNear(r.w, er.w) &&
      isNear(r.x, er.x) && isNear(r.y, er.y) && isNear(r.z, er.z)) {
    return testing::AssertionSuccess();
  }
  return testing::AssertionFailure()
         << "(" << t.x << " " << t.y << " " << t.z << ") (" << r.w << " " << r.x << " " << r.y
         << " " << r.z << ") is not (" << et.x << " " << et.y << " " << et.z << ") (" << er.w << " "
         << er.x << " " << er.y << " " << er.z << ")";
}

/// How often each way to interpolate is taken by a rig's poses.
struct Taken {
  int neutral = 0, chord = 0, arc = 0, fallback = 0;

  void Count(const naive::Rig& rig, const std::vector<double>& weights) {
    for (std::size_t p = 0; p < rig.poses.size(); ++p) {
      for (std::size_t b = 0; b < rig.ids.size(); ++b) {
        const naive::Quat& from = rig.poses[0][b].rotation;
        const naive::Quat to = naive::Aligned(rig.poses[p][b].rotation, from);
        const float cosine = naive::Dot(from, to);
        ++(cosine > 0.9999999F ? neutral : cosine > 0.55F ? chord : arc);
        const auto weight = static_cast<float>(weights[p]);
        fallback += naive::Between(from, to, weight).z == 0.1F ? 1 : 0;
      }
    }
  }
};

TEST(NaiveTest, BlendIsTheSameOverRandomRigs) {
  Taken taken;
  for (unsigned seed = 0; seed < 60; ++seed) {
    RandomFace random(seed, seed % 4 == 0 ? Turns::kNear : Turns::kEvery);
    // Neither bones nor poses are always a multiple of what wide instructions take.
    const int poses = 1 + static_cast<int>(seed % 21);
    TBonePoseInfo rig = random.Rig(1 + static_cast<int>(seed * 7 % 70), poses);
    naive::Rig expected = NaiveRig(rig);
    for (int frame = 0; frame < 3; ++frame) {
      std::vector<double> weights(static_cast<std::size_t>(poses));
      for (double& weight : weights)
        weight = random.Uniform(0.0, 1.0) < 0.3 ? 0.0 : random.Uniform(-1.5, 2.0);
      rig.Blend(weights);
      naive::Blend(expected, expected.poses[0], weights);
      for (std::size_t b = 0; b < expected.blended.size(); ++b) {
        ASSERT_TRUE(AreSame(rig.blendedBones[b], expected.blended[b]))
            << "seed " << seed << ", frame " << frame << ", bone " << b;
      }
      taken.Count(expected, weights);
    }
  }
  EXPECT_GT(taken.neutral, 1000);
  EXPECT_GT(taken.chord, 1000);
  EXPECT_GT(taken.arc, 1000);
  EXPECT_GT(taken.fallback, 100);
}

TEST(NaiveTest, FrameIsTheSameOverRandomFaces) {
  for (unsigned seed = 0; seed < 24; ++seed) {
    FaceSize size;
    size.bones = 5 + static_cast<int>(seed);
    size.expressionPoses = 1 + static_cast<int>(seed % 2);
    size.activeTargets = seed % 3 == 0 ? 3 : 15;
    size.activeExpressions = static_cast<int>(seed % 5);
    size.keys = 12;
    size.lowest = -0.3;
    size.highest = 1.2;
    PlayedFace face(seed, seed % 4 == 0 ? Turns::kNear : Turns::kEvery, size);
    // Got before the first blend: what is changed through it later counts from then on.
    TIndexedBone& changed = face.Rig().GetPose(1).GetBone(2);
    for (double time = 0.0; time < face.Length(); time += 61.7) {
      changed.translation.x += 0.5F;
      changed.rotation.y += 0.25F;
      naive::Bone& expectedChanged = face.NaiveFace().rig.poses[1][2];
      expectedChanged.translation.x += 0.5F;
      expectedChanged.rotation.y += 0.25F;
      face.Play(time);
      face.PlayNaive(time);
      for (std::size_t b = 0; b < face.NaiveOut().size(); ++b) {
        ASSERT_TRUE(AreSame(face.Out().Bones()[b], face.NaiveOut()[b]))
            << "seed " << seed << ", time " << time << ", bone " << b;
      }
    }
  }
}

}  // namespace
}  // namespace lipvane::bench
