// The product against the naive reference.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>
#include <vector>

#include "bench/played_face.h"

namespace lipvane::bench {
namespace {

template <typename Bone>
std::array<float, 7> NumbersOf(const Bone& bone) {
  const auto& t = bone.translation;
  const auto& r = bone.rotation;
  return {t.x, t.y, t.z, r.w, r.x, r.y, r.z};
}

std::uint32_t BitsOf(float number) {
  std::uint32_t bits = 0;
  std::memcpy(&bits, &number, sizeof bits);
  return bits;
}

/// Rotations may differ by what a relative blend rounds otherwise. Translations are the same bits.
/// What is no number stands in the same places.
testing::AssertionResult AreSame(const TIndexedBone& bone, const naive::Bone& expected) {
  constexpr float kRounding = 5e-6F;
  const auto a = NumbersOf(bone);
  const auto b = NumbersOf(expected);
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (BitsOf(a[i]) == BitsOf(b[i]) || (std::isnan(a[i]) && std::isnan(b[i]))) continue;
    if (i >= 3 && std::abs(a[i] - b[i]) <= kRounding) continue;
    return testing::AssertionFailure()
           << testing::PrintToString(a) << " is not " << testing::PrintToString(b);
  }
  return testing::AssertionSuccess();
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
    const int poses = 1 + static_cast<int>(seed % 10 == 9 ? seed * 2 : seed % 21);
    TBonePoseInfo rig = random.Rig(1 + static_cast<int>(seed * 7 % 70), poses);
    const auto any = [&](std::size_t count) {
      return static_cast<std::size_t>(random.Uniform(0.0, static_cast<double>(count)));
    };
    if (seed % 5 == 0) {
      TBonePose& pose = rig.poses[any(rig.poses.size())];
      TIndexedBone& bone = pose.GetBone(static_cast<int>(any(pose.Bones().size())));
      (seed % 2 == 0 ? bone.translation.y : bone.rotation.x) = seed % 3 == 0 ? NAN : INFINITY;
    }
    naive::Rig expected = NaiveRig(rig);
    for (int frame = 0; frame < 3; ++frame) {
      std::vector<double> weights(static_cast<std::size_t>(poses));
      for (double& weight : weights)
        weight = random.Uniform(0.0, 1.0) < 0.3 ? 0.0 : random.Uniform(-1.5, 2.0);
      const std::vector<double> odd = {-1e9, 700.0, NAN, INFINITY};
      if (random.Uniform(0.0, 1.0) < 0.3) weights[any(weights.size())] = odd[any(odd.size())];
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
    size.lowestOfExpressions = seed % 6 == 5 ? -30.0 : -0.3;
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

// Where a rounding of the blend alone would decide how the frame goes on.
TEST(NaiveTest, FramesNearTheBoundsAreTheSame) {
  constexpr int kBones = 4000;
  constexpr std::pair<double, double> kBounds[] = {
      {0.9999999, 2e-4}, {0.55, 1e-6}, {0.0, 1e-6}};  // cosines; how far half angles are from them
  for (const auto& [cosine, width] : kBounds) {
    RandomFace random(7, Turns::kNear);
    TBonePoseInfo rig = random.Rig(kBones, 20);
    TExpressionInfo expression = random.Expression("Blink", rig, 0, kBones, 1);
    expression.weight = 0.25;  // half of the way, an arc and its chord meet
    for (int b = 0; b < kBones; ++b) {
      Quaternion& neutral = rig.GetPose(0).GetBone(b).rotation;
      const double length = random.Uniform(0.999, 1.001);
      const double half = std::acos(std::min(cosine / length, 1.0)) + random.Uniform(-width, width);
      const auto sine = static_cast<float>(std::sin(half) / std::sqrt(3.0));
      rig.GetPose(1).GetBone(b).rotation =
          Quaternion::Multiply(neutral, {static_cast<float>(std::cos(half)), sine, sine, sine});
      for (float* number : {&neutral.w, &neutral.x, &neutral.y, &neutral.z})
        *number *= static_cast<float>(length);
    }
    naive::Face face;
    face.rig = NaiveRig(rig);
    face.outIds = rig.boneIds;
    face.expressions.push_back({NaiveRig(expression), {{0, 0.25}, {1, 0.25}}});
    face.weights.resize(rig.poses.size());
    face.weights[1] = 1.0;
    naive::Pose expected(kBones);
    naive::PlayFrame(face, 0.0, expected);

    TController controller;
    controller.SetBonePoseInfo(rig);
    controller.AddExpression(expression);
    TBonePose out;
    controller.InitializeBones(out);
    std::vector<double> weights = face.weights;
    controller.BonePoseInfo()->Blend(weights);
    controller.GetExpression(0)->Blend(&rig.GetPose(0), weights, true);
    controller.FinalBlend(out);
    for (std::size_t b = 0; b < expected.size(); ++b)
      ASSERT_TRUE(AreSame(out.Bones()[b], expected[b])) << cosine << ", bone " << b;
  }
}

}  // namespace
}  // namespace lipvane::bench
