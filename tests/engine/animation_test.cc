#include "lipvane/engine/animation.h"

#include <gtest/gtest.h>

namespace lipvane {
namespace {

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
  EXPECT_EQ(animation.GetExpressionTrack("Eat"), nullptr);
}

TEST(AnimationTest, DigestOnlyRaisesTheLength) {
  TAnimation animation;
  animation.AddTrack(TAnimationTrack());  // ends at -1
  animation.Digest();
  EXPECT_EQ(animation.length, 0);
  animation.AddTrack(Rising("Eat", 40));
  animation.AddExpressionTrack(Rising("Blink", 120));
  animation.Digest();
  EXPECT_EQ(animation.length, 120);
  animation.expressionTracks.clear();
  animation.Digest();
  EXPECT_EQ(animation.length, 120);
  // The last key by position counts, not the latest.
  TAnimationTrack turned = Rising("Earth", 500);
  turned.AddKey({130, 0.0});
  animation.AddTrack(turned);
  animation.Digest();
  EXPECT_EQ(animation.length, 130);
}

TEST(AnimationTest, ValuesInsideTheLength) {
  TAnimation animation;
  for (const int end : {40, 80, 120}) {
    animation.AddTrack(Rising("", end));
  }
  animation.Digest();
  std::vector<double> weights;
  for (const double outside : {-0.001, 120.5}) {
    EXPECT_TRUE(animation.ValuesAtTime(outside, weights));
    EXPECT_TRUE(weights.empty());
  }
  EXPECT_FALSE(animation.ValuesAtTime(40, weights));
  EXPECT_EQ(weights, (std::vector<double>{0, 1, 0.5, 7.0 / 27}));
  EXPECT_FALSE(animation.ValuesAtTime(120, weights));
  EXPECT_FALSE(animation.ValuesAtTime(0, weights));

  // Neither the neutral pose's weight nor what lies beyond the tracks is touched.
  weights = {9, 9, 9, 9, 9};
  EXPECT_FALSE(animation.ValuesAtTime(0, weights));
  EXPECT_EQ(weights, (std::vector<double>{9, 0, 0, 0, 9}));
}

TEST(AnimationTest, EmptyAnimationHasOneMoment) {
  TAnimation animation;
  std::vector<double> weights;
  EXPECT_FALSE(animation.ValuesAtTime(0, weights));
  EXPECT_TRUE(weights.empty());
  EXPECT_TRUE(animation.ValuesAtTime(0.5, weights));
}

TEST(AnimationTest, ExpressionsAreSampledBeyondTheLength) {
  TAnimation animation;
  animation.AddExpressionTrack(Rising("Blink", 10));
  EXPECT_EQ(animation.ExpressionValueAtTime(5, "Blink"), 0.5);
  EXPECT_EQ(animation.ExpressionValueAtTime(99, "Blink"), 1.0);
  EXPECT_EQ(animation.ExpressionValueAtTime(5, "Squint"), 0.0);
}

}  // namespace
}  // namespace lipvane
