#include "lipvane/speech/speech_tracks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <random>
#include <string>
#include <vector>

#include "lipvane/formats/ltf.h"

namespace lipvane::speech::test {
namespace {

const std::vector<std::string> kTargets = {"Eat", "Ox", "Bump"};
const Weights kSilence = {0, 0, 0};

/// The keys of one target's track: "TIME VALUE, ...".
std::string Keys(const TAnimation& animation, std::size_t target) {
  std::string text;
  const TAnimationTrack& track = animation.tracks[target];
  for (int i = 0; i < track.KeyCount(); ++i) {
    text += std::to_string(track.GetKey(i)->time) + " ";
    text += std::to_string(static_cast<int>(std::lround(track.GetKey(i)->value * 100))) + ", ";
  }
  return text;
}

class SpeechTracksTest : public testing::Test {
 protected:
  TAnimation Tracks(const std::vector<Phone>& phones, double end,
                    const TrackOptions& options = {}) {
    leftOut_ = {};
    return SpeechTracks(phones, end, kSilence, kTargets, options, leftOut_);
  }

  Weights eat_ = {1, 0, 0};
  Weights half_ = {0.5F, 0.25F, 0};
  Weights bump_ = {0, 0, 0.75F};
  LeftOut leftOut_;
};

TEST_F(SpeechTracksTest, HoldLongPhonesAndPassThroughShortOnes) {
  const std::vector<Phone> phones = {{&eat_, 0.29, 0.6}, {&bump_, 0.6, 0.7}, {&half_, 0.7, 0.7605}};
  TAnimation animation = Tracks(phones, 1.2);
  EXPECT_EQ(Keys(animation, 0), "0 0, 210 0, 370 100, 520 100, 650 0, 730 50, 840 0, 1200 0, ");
  EXPECT_EQ(Keys(animation, 2), "0 0, 520 0, 650 75, 730 0, 1200 0, ");
  EXPECT_EQ(animation.length, 1200);
  EXPECT_EQ(animation.tracks[1].name, "Ox");

  // In binary 1.005 s is a little less, and would be cut to 1004 ms.
  EXPECT_EQ(Keys(Tracks({{&eat_, 1.005, 1.3}}, 2), 0),
            "0 0, 925 0, 1085 100, 1220 100, 1380 0, 2000 0, ");
  // All moves earlier, but for the start.
  animation = Tracks(phones, 1.2, {40, 50.5, 2});
  EXPECT_EQ(Keys(animation, 0),
            "0 0, 200 0, 279 200, 510 200, 589 0, 610 0, 680 100, 750 0, 1150 0, ");
  // The first phone begins at the start: the mouth comes from rest all the same.
  EXPECT_EQ(Keys(Tracks({{&eat_, 0, 0.3}}, 0.3), 0), "0 0, 80 100, 220 100, 300 0, ");
  EXPECT_EQ(Keys(Tracks({{&eat_, 0, 0.3}}, 0.3, {80, 100, 1}), 0), "0 0, 1 100, 120 100, 200 0, ");
  // What the lead leaves of a long phone is held; of silence as well.
  EXPECT_EQ(Keys(Tracks({{&eat_, 0, 1}}, 1, {80, 700, 1}), 0), "0 0, 1 100, 220 100, 300 0, ");
  EXPECT_EQ(Keys(Tracks({{&kSilence, 0, 0.15}, {&eat_, 0.15, 0.4}}, 0.4, {40, 80, 1}), 0),
            "0 0, 30 0, 110 100, 280 100, 320 0, ");
  // A gap is silence unless nobody hears it.
  EXPECT_EQ(Keys(Tracks({{&eat_, 0, 1}, {&eat_, 1.02, 2}}, 2), 0),
            "0 0, 80 100, 920 100, 1010 0, 1100 100, 1920 100, 2000 0, ");
  EXPECT_EQ(Keys(Tracks({{&eat_, 0, 1}, {&eat_, 1.019, 2}}, 2), 0),
            "0 0, 80 100, 1920 100, 2000 0, ");
  // Steps, where the ramp is nothing; one key for a middle that has no nearest millisecond is two.
  EXPECT_EQ(Keys(Tracks({{&eat_, 0.1, 0.2}, {&bump_, 0.2, 0.3}}, 0.4, {0, 0, 1}), 0),
            "0 0, 100 0, 101 100, 200 100, 201 0, 400 0, ");
  EXPECT_EQ(Keys(Tracks({{&eat_, 0.1, 0.113}}, 0.2), 0),
            "0 0, 50 0, 106 100, 107 100, 156 0, 200 0, ");
}

TEST_F(SpeechTracksTest, MergePhonesThatHaveNoMillisecondOfTheirOwn) {
  const TAnimation animation = Tracks({{&eat_, 0.1, 0.2},
                                       {&half_, 0.2, 0.2},
                                       {&bump_, 0.2, 0.3},
                                       {&half_, 0.3, 0.3004},
                                       {&kSilence, 0.3004, 0.3004}},
                                      0.3004);
  EXPECT_EQ(leftOut_.merged, (std::vector<std::size_t>{1, 3}));
  EXPECT_EQ(Keys(animation, 1), "0 0, 301 0, ");
  // Of two whose middles fall together the longer one stays.
  Tracks({{&eat_, 0.0990, 0.1003}, {&bump_, 0.1003, 0.1006}}, 0.2);
  EXPECT_EQ(leftOut_.merged, (std::vector<std::size_t>{1}));
  Tracks({{&eat_, 0.0994, 0.0997}, {&bump_, 0.0997, 0.1010}}, 0.2);
  EXPECT_EQ(leftOut_.merged, (std::vector<std::size_t>{0}));
  // The end makes room for the last one, the start for none.
  EXPECT_EQ(Keys(Tracks({{&eat_, 0.2994, 0.3}}, 0.3), 0), "0 0, 220 0, 300 100, 301 0, ");
  Tracks({{&eat_, 0, 0.0009}}, 0.3);
  EXPECT_EQ(leftOut_.merged, (std::vector<std::size_t>{0}));
  EXPECT_TRUE(leftOut_.beforeStart.empty());
  Tracks({{&eat_, 0.0, 0.18}, {&bump_, 0.2, 0.3}}, 0.3, {90, 90, 1});
  EXPECT_EQ(leftOut_.beforeStart, (std::vector<std::size_t>{0}));
  EXPECT_TRUE(leftOut_.merged.empty());
}

/// What holds of any line, for phones of at least two milliseconds.
TEST_F(SpeechTracksTest, KeepTheirPropertiesOverRandomTimings) {
  std::mt19937 random(5);
  const auto upTo = [&](double most) {
    return std::uniform_real_distribution<double>(0.0, most)(random);
  };
  constexpr double kMost = 0.9F;
  const std::vector<Weights> rows = {
      kSilence, {0.9F, 0, 0}, {0.9F, 0, 0}, {0, 0.5F, 0.1F}, {0.3F, 0.5F, 0}};
  std::size_t held = 0;
  std::size_t equal = 0;
  for (int round = 0; round < 400; ++round) {
    const TrackOptions options = {round % 3 == 0 ? 80.0 : upTo(round % 3 == 1 ? 100 : 2),
                                  round % 2 == 0 ? 0.0 : upTo(60), upTo(2)};
    std::vector<Phone> phones;
    double time = round % 4 == 0 ? 0.0 : upTo(0.5);
    for (int i = 0; i < 40; ++i) {
      const double length = 0.002 + upTo(i % 7 == 0 ? 0.6 : i % 3 == 0 ? 0.02 : 0.2);
      phones.push_back({&rows[static_cast<std::size_t>(upTo(4.999))], time, time + length});
      time += length + (i % 11 == 0 ? upTo(0.4) : 0.0);
    }
    const TAnimation animation = Tracks(phones, time, options);
    EXPECT_TRUE(leftOut_.merged.empty());
    for (std::size_t target = 0; target < kTargets.size(); ++target) {
      const TAnimationTrack& track = animation.tracks[target];
      const int last = track.KeyCount() - 1;
      EXPECT_EQ(track.GetKey(0)->time, 0);
      EXPECT_EQ(track.GetKey(0)->value, 0.0);
      EXPECT_EQ(track.GetKey(last)->value, 0.0);
      for (int i = 1; i <= last; ++i)
        ASSERT_LT(track.GetKey(i - 1)->time, track.GetKey(i)->time);
      for (int ms = 0; ms <= animation.length; ++ms) {
        ASSERT_GE(track.ValueAtTime(ms), -1e-15);
        ASSERT_LE(track.ValueAtTime(ms), kMost * options.strength + 2e-7);
      }
      for (std::size_t i = 0; i < phones.size(); ++i) {
        const double start = phones[i].start * 1000 - options.leadMs;
        const double end = phones[i].end * 1000 - options.leadMs;
        const double exact = static_cast<double>((*phones[i].weights)[target]) * options.strength;
        const double middle = std::round((start + end) / 2);
        if ((start + end) / 2 < 1) continue;  // before the beginning
        const double weight = track.ValueAtTime(middle);
        ASSERT_FLOAT_EQ(static_cast<float>(weight), static_cast<float>(exact));
        // Long silence is such a phone as well.
        for (double ms = std::max(1.0, std::ceil(start + options.rampMs));
             ms <= end - options.rampMs; ms += 1.0) {
          ASSERT_EQ(track.ValueAtTime(ms), weight) << round << " " << i;
          ++held;
        }
        if (i == 0 || phones[i - 1].end != phones[i].start ||
            (*phones[i - 1].weights)[target] != (*phones[i].weights)[target]) {
          continue;
        }
        const double middleBefore = (phones[i - 1].start * 1000 - options.leadMs + start) / 2;
        if (middleBefore < 1) continue;
        for (double ms = std::round(middleBefore); ms <= middle; ms += 1.0) {
          ASSERT_EQ(track.ValueAtTime(ms), weight) << round << " " << i;
          ++equal;
        }
      }
    }
    // The file reads back as it was written, over the lines of 25 and 26 keys.
    std::string text;
    std::string reason;
    TAnimation again;
    ReadProblem problem;
    ASSERT_TRUE(LtfText(animation, {}, text, reason));
    ASSERT_TRUE(ReadLtfText(text, again, problem));
    EXPECT_EQ(again.length, animation.length);
    for (std::size_t target = 0; target < kTargets.size(); ++target) {
      const TAnimationTrack& track = animation.tracks[target];
      ASSERT_EQ(again.tracks[target].KeyCount(), track.KeyCount());
      for (int i = 0; i < track.KeyCount(); ++i) {
        ASSERT_EQ(again.tracks[target].GetKey(i)->time, track.GetKey(i)->time);
        ASSERT_EQ(again.tracks[target].GetKey(i)->value, track.GetKey(i)->value);
      }
    }
  }
  EXPECT_GT(held, 10000U);
  EXPECT_GT(equal, 10000U);
}

}  // namespace
}  // namespace lipvane::speech::test
