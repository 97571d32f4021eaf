// The loops on every kind of lanes that this processor has.

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <random>
#include <string>
#include <vector>

#include "lipvane/engine/bone_pose.h"
#include "lipvane/engine/wide/blend_loops.h"
#include "tests/engine/bone_bytes.h"

namespace lipvane {
namespace {

using test::Bytes;
using wide::BlendLoops;

std::vector<const BlendLoops*> AllLoops() {
  std::vector<const BlendLoops*> all = {&wide::PlainLoops(), &wide::BaselineLoops()};
  if (wide::AvxLoops() != nullptr) all.push_back(wide::AvxLoops());
  return all;
}

class WideTest : public testing::Test {
 protected:
  float Number(double low, double high) {
    return static_cast<float>(std::uniform_real_distribution<double>(low, high)(random_));
  }

  /// Any length and direction, now and then what no rig has.
  Quaternion AnyRotation() {
    const Quaternion q(Number(-1, 1), Number(-1, 1), Number(-1, 1), Number(-1, 1));
    const float kind = Number(0, 20);
    if (kind < 1) return {0, 0, 0, 0};
    if (kind < 2) return {q.w * 1e-3F, q.x * 1e-3F, q.y * 1e-3F, q.z * 1e-3F};
    if (kind < 3) return {q.w * 1e-25F, q.x * 1e-25F, q.y * 1e-25F, q.z * 1e-25F};
    if (kind < 4) return {INFINITY, q.x, q.y, q.z};
    return q;
  }

  Quaternion Near(const Quaternion& q, float distance) {
    return {q.w + Number(-1, 1) * distance, q.x + Number(-1, 1) * distance,
            q.y + Number(-1, 1) * distance, q.z + Number(-1, 1) * distance};
  }

  TIndexedBone AnyBone(int index) {
    return {{Number(-9, 9), Number(-9, 9), Number(-9, 9)}, AnyRotation(), index};
  }

  std::mt19937 random_{5};
};

TEST_F(WideTest, StepsAreThoseOfBlendBitForBit) {
  int done = 0;
  int left = 0;
  for (std::size_t count = 0; count < 300; ++count) {
    const std::size_t bones = 1 + count % 70;
    std::vector<TIndexedBone> targets;
    std::vector<TIndexedBone> bases;
    std::vector<TIndexedBone> from;
    std::vector<TIndexedBone> to;
    std::vector<float> weights;
    for (std::size_t i = 0; i < bones; ++i) {
      bases.push_back(AnyBone(1));
      if (Number(0, 4) > 1) bases[i].rotation.Normalize();
      targets.push_back(AnyBone(2));
      const float kind = Number(0, 4);
      const float distance = kind < 1 ? 0.0F : kind < 2 ? 4e-4F : 0.5F;
      if (kind < 3) targets[i].rotation = Near(bases[i].rotation, distance);
      from.push_back(AnyBone(3));
      to.push_back(AnyBone(static_cast<int>(i) - 7));
      weights.push_back(kind > 3.5F ? 0.0F : Number(-2, 3));
    }
    std::vector<TIndexedBone> expected = to;
    for (std::size_t i = 0; i < bones; ++i) {
      expected[i].translation = from[i].translation;
      expected[i].rotation = from[i].rotation;
      const TIndexedBone& base = bases[i];
      TIndexedBone target = targets[i];
      _Blend(target.translation, target.rotation, base.translation, base.rotation,
             base.rotation.Inverse(), expected[i].translation, expected[i].rotation, weights[i]);
    }
    for (const BlendLoops* loops : AllLoops()) {
      std::vector<TIndexedBone> results = to;
      std::vector<wide::Step> steps;
      for (std::size_t i = 0; i < bones; ++i)
        steps.push_back({&targets[i], &bases[i], &from[i], &results[i], weights[i]});
      std::vector<std::size_t> notDone(bones);
      notDone.resize(loops->addSteps(steps.data(), bones, notDone.data()));
      left += static_cast<int>(notDone.size());
      done += static_cast<int>(bones - notDone.size());
      for (const std::size_t i : notDone) {
        EXPECT_EQ(results[i].rotation.w, from[i].rotation.w);
        EXPECT_EQ(results[i].translation, from[i].translation);
        results[i].translation = expected[i].translation;
        results[i].rotation = expected[i].rotation;
      }
      ASSERT_EQ(Bytes(results), Bytes(expected)) << loops->name << ", " << bones << " bones";
    }
  }
  EXPECT_GT(done, 10000);
  EXPECT_GT(left, 3000);
}

TEST_F(WideTest, RelativeBlendsHaveTheSameBitsOnAllLanes) {
  for (int round = 0; round < 60; ++round) {
    const auto bones = static_cast<std::size_t>(1 + round);
    const auto poses = static_cast<std::size_t>(round % 23);
    const std::size_t blocks = (bones + wide::kBlock - 1) / wide::kBlock;
    const auto fill = [&](wide::BoneBlock& block) {
      auto* numbers = reinterpret_cast<float*>(&block);
      for (std::size_t i = 0; i < sizeof block / sizeof(float); ++i)
        numbers[i] = Number(-1, 1);
    };
    std::vector<wide::StartBlock> starts(blocks);
    for (wide::StartBlock& start : starts) {
      fill(start.bones);
      for (float& length : start.squaredLength)
        length = Number(0, 2);
    }
    std::vector<wide::BoneBlock> cells(blocks * poses);
    for (wide::BoneBlock& cell : cells)
      fill(cell);
    std::vector<wide::ShareBlock> own(blocks);
    for (wide::ShareBlock& share : own)
      for (std::size_t i = 0; i < wide::kBlock; ++i) {
        share.ofStart[i] = Number(0, 1);
        share.ofPose[i] = Number(0, 1);
      }
    std::vector<const wide::ShareBlock*> shares;
    std::vector<float> weights;
    for (std::size_t p = 0; p < poses; ++p) {
      shares.push_back(p % 3 == 0 ? own.data() : nullptr);
      weights.push_back(p % 4 == 0 ? 0.0F : Number(-1, 2));
    }
    std::vector<std::string> results;
    for (const BlendLoops* loops : AllLoops()) {
      std::vector<TIndexedBone> blended(bones, TIndexedBone({}, {}, 42));
      std::vector<int> unsure(bones);
      unsure.resize(loops->blend({starts.data(), cells.data(), poses, weights.data(),
                                  round % 2 == 0 ? shares.data() : nullptr, blended.data(), bones},
                                 unsure.data()));
      results.push_back(Bytes(blended));
      for (const int bone : unsure)
        results.back() += ' ' + std::to_string(bone);
      EXPECT_EQ(blended.back().boneIndex, 42);
      EXPECT_EQ(results.back(), results.front()) << loops->name;
    }
  }
}

}  // namespace
}  // namespace lipvane
