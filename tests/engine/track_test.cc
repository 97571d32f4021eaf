#include "lipvane/engine/track.h"

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <limits>
#include <stdexcept>

namespace lipvane {
namespace {

TAnimationTrack Track(std::initializer_list<TAnimationKey> keys) {
  TAnimationTrack track;
  for (const TAnimationKey& key : keys) {
    track.AddKey(key);
  }
  return track;
}

TEST(TrackTest, KeysByPosition) {
  TAnimationTrack track = Track({{5, 1}, {3, 2}, {3, 4}});
  EXPECT_EQ(track.GetKey(1)->time, 3);
  EXPECT_EQ(track.GetKey(3), nullptr);
  EXPECT_EQ(track.GetKey(-1), nullptr);
  track.DeleteKey(1);
  ASSERT_EQ(track.KeyCount(), 2);
  EXPECT_EQ(track.GetKey(1)->value, 4);
  EXPECT_THROW(track.DeleteKey(2), std::out_of_range);
  EXPECT_THROW(track.DeleteKey(-1), std::out_of_range);
}

TEST(TrackTest, EndValuesAreHeld) {
  EXPECT_EQ(TAnimationTrack().ValueAtTime(3), 0.0);
  const TAnimationTrack single = Track({{10, 0.7}});
  for (const double t : {-1e300, 9.9, 10.0, 10.1, 1e300}) {
    EXPECT_EQ(single.ValueAtTime(t), 0.7);
  }
  const TAnimationTrack track = Track({{10, 0.25}, {20, 1}, {30, 0.5}});
  EXPECT_EQ(track.ValueAtTime(9), 0.25);
  EXPECT_EQ(track.ValueAtTime(31), 0.5);
}

TEST(TrackTest, EasesBetweenKeys) {
  const TAnimationTrack track = Track({{0, 0}, {10, 1}, {20, -1}});
  EXPECT_EQ(track.ValueAtTime(5), 0.5);
  EXPECT_EQ(track.ValueAtTime(2.5), 0.15625);
  EXPECT_EQ(track.ValueAtTime(10), 1.0);
  EXPECT_EQ(track.ValueAtTime(15), 0.0);
  EXPECT_EQ(track.ValueAtTime(20), -1.0);
  // Flat at the keys, as the cubic has no linear term.
  EXPECT_NEAR(track.ValueAtTime(0.001), 0, 1e-7);
  EXPECT_NEAR(track.ValueAtTime(9.999), 1, 1e-7);
  // Times as far apart as they can be do not overflow.
  constexpr int kMax = std::numeric_limits<int>::max();
  EXPECT_EQ(Track({{-kMax, 0}, {kMax, 1}}).ValueAtTime(0), 0.5);
}

TEST(TrackTest, TinyResultsVanishOnlyInsideTheKeys) {
  const TAnimationTrack track = Track({{0, 1e-17}, {10, 4.4e-16}, {20, -4.5e-16}});
  EXPECT_EQ(track.ValueAtTime(-1), 1e-17);
  EXPECT_EQ(track.ValueAtTime(0), 0.0);
  EXPECT_EQ(track.ValueAtTime(10), 0.0);
  EXPECT_DOUBLE_EQ(track.ValueAtTime(20), -4.5e-16);
  const TAnimationTrack single = Track({{10, 1e-17}});
  EXPECT_EQ(single.ValueAtTime(10), 0.0);
  EXPECT_EQ(single.ValueAtTime(11), 1e-17);
}

TEST(TrackTest, LastTwoKeysAtOneTimeGiveNoNumber) {
  const TAnimationTrack track = Track({{0, 0}, {10, 1}, {10, 2}});
  EXPECT_TRUE(std::isnan(track.ValueAtTime(10)));
  EXPECT_EQ(track.ValueAtTime(10.5), 2);
  // Elsewhere the later of the two takes over.
  EXPECT_EQ(Track({{0, 0}, {10, 1}, {10, 2}, {20, 2}}).ValueAtTime(10), 2);
}

TEST(TrackTest, KeysOutOfOrder) {
  // Of two intervals that hold a time the first counts.
  EXPECT_EQ(Track({{0, 0}, {10, 1}, {2, 50}, {20, 60}}).ValueAtTime(5), 0.5);
  EXPECT_EQ(Track({{8, 3}, {4, 0}, {20, 2}, {10, 9}}).ValueAtTime(12), 9);
  EXPECT_EQ(Track({{8, 3}, {0, 0}, {20, 2}, {10, 9}}).ValueAtTime(10), 1);
  // When none holds it, it is the last one's end.
  EXPECT_EQ(Track({{10, 3}, {0, 1}, {10, 2}}).ValueAtTime(10), 2);
}

}  // namespace
}  // namespace lipvane
