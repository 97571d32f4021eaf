#include "lipvane/engine/track.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <stdexcept>
#include <vector>

namespace lipvane {
namespace {

using Keys = std::vector<TAnimationKey>;

TAnimationTrack Track(const Keys& keys) {
  TAnimationTrack track;
  for (const TAnimationKey& key : keys) {
    track.AddKey(key);
  }
  return track;
}

double ValueAt(double time, const Keys& keys) {
  return Track(keys).ValueAtTime(time);
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
  EXPECT_EQ(ValueAt(3, {}), 0.0);
  for (const double time : {-1e300, 9.9, 10.0, 10.1, 1e300}) {
    EXPECT_EQ(ValueAt(time, {{10, 0.7}}), 0.7);
  }
  const Keys keys = {{10, 0.25}, {20, 1}, {30, 0.5}};
  EXPECT_EQ(ValueAt(9, keys), 0.25);
  EXPECT_EQ(ValueAt(31, keys), 0.5);
}

TEST(TrackTest, EasesBetweenKeys) {
  EXPECT_DOUBLE_EQ(ValueAt(1, {{0, 0}, {10, 1}}), 0.028);
  // Times as far apart as they can be do not overflow.
  constexpr int kMax = std::numeric_limits<int>::max();
  EXPECT_EQ(ValueAt(0, {{-kMax, 0}, {kMax, 1}}), 0.5);
}

TEST(TrackTest, TinyResultsVanishOnlyInsideTheKeys) {
  const Keys keys = {{0, 1e-17}, {10, 4.4e-16}, {20, -4.5e-16}};
  EXPECT_EQ(ValueAt(-1, keys), 1e-17);
  EXPECT_EQ(ValueAt(0, keys), 0.0);
  EXPECT_EQ(ValueAt(10, keys), 0.0);
  EXPECT_DOUBLE_EQ(ValueAt(20, keys), -4.5e-16);
  EXPECT_EQ(ValueAt(10, {{10, 1e-17}}), 0.0);
  EXPECT_EQ(ValueAt(11, {{10, 1e-17}}), 1e-17);
}

TEST(TrackTest, LastTwoKeysAtOneTimeGiveNoNumber) {
  EXPECT_TRUE(std::isnan(ValueAt(10, {{0, 0}, {10, 1}, {10, 2}})));
  EXPECT_EQ(ValueAt(10.5, {{0, 0}, {10, 1}, {10, 2}}), 2);
  // Elsewhere the later of the two takes over.
  EXPECT_EQ(ValueAt(10, {{0, 0}, {10, 1}, {10, 2}, {20, 2}}), 2);
}

TEST(TrackTest, KeysOutOfOrder) {
  // Of two intervals that hold a time the first counts.
  EXPECT_EQ(ValueAt(5, {{0, 0}, {10, 1}, {2, 50}, {20, 60}}), 0.5);
  EXPECT_EQ(ValueAt(12, {{8, 3}, {4, 0}, {20, 2}, {10, 9}}), 9);
  EXPECT_EQ(ValueAt(10, {{8, 3}, {0, 0}, {20, 2}, {10, 9}}), 1);
  EXPECT_EQ(ValueAt(10, {{0, 0}, {20, 1}, {5, 7}, {8, 7}, {30, 9}}), 0.5);
  // When none holds it, it is the last one's end.
  EXPECT_EQ(ValueAt(10, {{10, 3}, {0, 1}, {10, 2}}), 2);
}

/// The interval by the rule, one after the other.
double ValueByRule(double t, const Keys& keys) {
  std::size_t i = 0;
  while (i < keys.size() - 2 && !(keys[i].time <= t && t < keys[i + 1].time))
    ++i;
  const double u = (t - keys[i].time) / (static_cast<double>(keys[i + 1].time) - keys[i].time);
  const double a = keys[i].value;
  const double b = keys[i + 1].value;
  return (2 * a - 2 * b) * u * u * u + (3 * b - 3 * a) * u * u + a;
}

TEST(TrackTest, FindsTheIntervalOfTheRuleWhereverItLookedBefore) {
  std::mt19937 random(7);
  const auto upTo = [&](int most) {
    return static_cast<int>(random() % static_cast<unsigned>(most));
  };
  for (int round = 0; round < 300; ++round) {
    Keys keys;
    const int count = 2 + upTo(60);
    for (int i = 0, time = 0; i < count; ++i) {
      keys.push_back({time, 1.0 + i % 7});
      time += upTo(4);                                 // equal times among them
      if (round % 4 == 0 && upTo(20) == 0) time -= 9;  // out of order
    }
    TAnimationTrack track = Track(keys);
    for (int sample = 0; sample < 200; ++sample) {
      if (sample == 100 && keys.size() > 2) {
        const int deleted = upTo(static_cast<int>(keys.size()));
        keys.erase(keys.begin() + deleted);
        track.DeleteKey(deleted);
      }
      const double t = round % 2 == 0 ? upTo(300) / 2.0 : sample % 100 * 1.3;
      if (t < keys.front().time || keys.back().time < t) continue;
      const double expected = ValueByRule(t, keys);
      const double value = track.ValueAtTime(t);
      ASSERT_TRUE(value == expected || (std::isnan(value) && std::isnan(expected)))
          << round << " " << t;
    }
  }
}

}  // namespace
}  // namespace lipvane
