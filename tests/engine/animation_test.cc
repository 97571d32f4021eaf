#include "lipvane/engine/animation.h"

#include <gtest/gtest.h>

namespace lipvane {
namespace {

using Weights = std::vector<double>;

/// A track that rises from 0 at time 0 to 1 at the end.
TAnimationTrack Rising(const std::string& name, int end) {
  TAnimationTrack track;
  track.name = name;
  track.AddKey({0, 0.0});
  track.AddKey({end, 1.0});
  return track;
}

TEST(AnimationTest, TracksByPositionAndByName) {
  TAnimation animation;
  animation.AddTrack(Rising("Eat", 40));
  animation.AddExpressionTrack(Rising("Blink", 10));
  animation.AddExpressionTrack(Rising("Blink", 20));
  EXPECT_EQ(animation.GetTrack(0)->name, "Eat");
  EXPECT_EQ(animation.GetTrack(1), nullptr);
  EXPECT_EQ(animation.GetTrack(-1), nullptr);
  EXPECT_EQ(animation.GetExpressionTrack("Blink"), &animation.expressionTracks[0]);
  EXPECT_EQ(animation.GetExpressionTrack("blink"), nullptr);
  // Expressions are sampled beyond the length.
  EXPECT_EQ(animation.ExpressionValueAtTime(5, "Blink"), 0.5);
  EXPECT_EQ(animation.ExpressionValueAtTime(99, "Blink"), 1.0);
  EXPECT_EQ(animation.ExpressionValueAtTime(5, "Eat"), 0.0);
}

TEST(AnimationTest, DigestOnlyRaisesTheLength) {
  TAnimation animation;
  const auto digestedLength = [&] {
    animation.Digest();
    return animation.length;
  };
  animation.AddTrack(TAnimationTrack());  // ends at -1
  EXPECT_EQ(digestedLength(), 0);
  animation.AddTrack(Rising("Eat", 40));
  animation.AddExpressionTrack(Rising("Blink", 120));
  EXPECT_EQ(digestedLength(), 120);
  animation.expressionTracks.clear();
  EXPECT_EQ(digestedLength(), 120);
  // The last key by position counts, not the latest.
  animation.AddTrack(Rising("Earth", 500));
  animation.GetTrack(2)->AddKey({130, 0.0});
  EXPECT_EQ(digestedLength(), 130);
}

TEST(AnimationTest, ValuesInsideTheLength) {
  TAnimation animation;
  Weights weights;
  EXPECT_FALSE(animation.ValuesAtTime(0, weights));  // empty, it has one moment
  EXPECT_TRUE(animation.ValuesAtTime(0.5, weights));

  for (const int end : {40, 80, 120}) {
    animation.AddTrack(Rising("", end));
  }
  animation.Digest();
  EXPECT_TRUE(animation.ValuesAtTime(-0.001, weights));
  EXPECT_TRUE(animation.ValuesAtTime(120.5, weights));
  EXPECT_TRUE(weights.empty());
  EXPECT_FALSE(animation.ValuesAtTime(40, weights));
  EXPECT_EQ(weights, (Weights{0, 1, 0.5, 7.0 / 27}));
  EXPECT_FALSE(animation.ValuesAtTime(120, weights));

  // Neither the neutral pose's weight nor what lies beyond the tracks is touched.
  weights = {9, 9, 9, 9, 9};
  EXPECT_FALSE(animation.ValuesAtTime(0, weights));
  EXPECT_EQ(weights, (Weights{9, 0, 0, 0, 9}));
}

}  // namespace
}  // namespace lipvane
