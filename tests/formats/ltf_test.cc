#include "lipvane/formats/ltf.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/comma_locale.h"
#include "tests/support/temporary_folder.h"

namespace lipvane {
namespace {

constexpr int kFirst = std::numeric_limits<int>::min();
constexpr int kLast = std::numeric_limits<int>::max();

using Keys = std::vector<std::pair<int, double>>;

Keys KeysOf(const TAnimationTrack& track) {
  Keys keys;
  for (int i = 0; i < track.KeyCount(); ++i)
    keys.emplace_back(track.GetKey(i)->time, track.GetKey(i)->value);
  return keys;
}

/// A file with one speech target track of these lines after its name.
std::string OneTrack(const std::string& lines) {
  return "LTF\n1.0\n0\n1\n{\nEat\n" + lines + "\n}\n0\n";
}

/// The keys that such a file gives; a key at -7 when it is refused.
Keys Read(const std::string& lines) {
  TAnimation animation;
  ReadProblem problem;
  const bool read = ReadLtfText(OneTrack(lines), animation, problem);
  return read ? KeysOf(animation.tracks.at(0)) : Keys{{-7, 0}};
}

/// "LINE: reason" of a refused text, "" of one that is taken.
std::string Refusal(const std::string& text, TAnimation& animation) {
  ReadProblem problem;
  if (ReadLtfText(text, animation, problem)) return "";
  return std::to_string(problem.line) + ": " + problem.reason;
}
std::string Refusal(const std::string& text) {
  TAnimation animation;
  return Refusal(text, animation);
}

constexpr char kWhole[] =
    "// an animation\r\n\r\nLTF x\r\n1.00 // version\r\n2\r\n{\r\n} any text\r\n"
    "2\r\n{ x\r\n Eat a// lot\r\n2\r\n0 0.25 40.9 1e0\r\n}\r\n{\r\n}\r\n0\r\n}\r\n"
    "1\r\n{\r\nBlink the left\r\n1\r\n120 -.5\r\n} end\r\ntrailing\r\n";

TEST(LtfReader, ReadsTracksAndDigests) {
  const test::CommaLocale comma;
  const test::TemporaryFolder folder;
  TAnimation animation;
  animation.AddTrack(TAnimationTrack());
  ASSERT_TRUE(LoadLtfFile(folder.Make("a.ltf", kWhole), animation));
  ASSERT_EQ(animation.tracks.size(), 3U);
  EXPECT_EQ(animation.tracks[1].name, " Eat a");
  EXPECT_EQ(KeysOf(animation.tracks[1]), (Keys{{0, 0.25}, {40, 1}}));
  EXPECT_EQ(animation.tracks[2].name, "}");
  EXPECT_EQ(animation.tracks[2].KeyCount(), 0);
  ASSERT_EQ(animation.expressionTracks.size(), 1U);
  EXPECT_EQ(animation.expressionTracks[0].name, "Blink the left");
  EXPECT_EQ(KeysOf(animation.expressionTracks[0]), (Keys{{120, -0.5}}));
  EXPECT_EQ(animation.length, 120);
}

TEST(LtfReader, FirstKeyLineIsOneKeyShorter) {
  const auto line = [](int from, int count) {
    std::string text;
    for (int key = from; key < from + count; ++key)
      text += std::to_string(key) + " 0.5 ";
    return text + "\n";
  };
  for (const int count : {25, 26, 51, 52, 77, 78}) {
    std::string lines = std::to_string(count) + "\n" + line(1, std::min(count, 25));
    for (int from = 26; from <= count; from += 26)
      lines += line(from, std::min(count - from + 1, 26));
    const Keys keys = Read(lines);
    ASSERT_EQ(keys.size(), static_cast<std::size_t>(count));
    for (int key = 1; key <= count; ++key)
      ASSERT_EQ(keys[static_cast<std::size_t>(key) - 1], std::make_pair(key, 0.5)) << count;
  }
  // Twenty-six on the first line: the last is passed over, and the brace is no line of keys.
  EXPECT_EQ(Refusal(OneTrack("26\n" + line(1, 26))),
            "11: the \"}\" of a track is expected here, not \"0\"");
}

TEST(LtfReader, WhatIsMissingOrUnreadableIsZero) {
  EXPECT_EQ(Read("3\n1 0.5 2"), (Keys{{1, 0.5}, {2, 0}, {0, 0}}));
  EXPECT_EQ(Read("2\n1  0.5 2 3"), (Keys{{1, 0.5}, {0, 0}}));
  EXPECT_EQ(Read("2\nx nan 3z 0,5"), (Keys{{0, 0}, {3, 0}}));
  EXPECT_EQ(Read("-3"), Keys());
}

TEST(LtfReader, TimesAreCutTowardsZeroAndFitAnInt) {
  std::vector<int> times;
  for (const auto& key : Read("9\n1.9 0 -1.9 0 -0.5 0 2147483648.5 0 -2147483649.5 0 1e300 0 "
                              "-1e999 0 2147483647 0 -2147483648 0"))
    times.push_back(key.first);
  EXPECT_EQ(times, (std::vector<int>{1, -1, 0, kLast, kFirst, kLast, kFirst, kLast, kFirst}));
}

TEST(LtfReader, RefusesWithPlaceAndReason) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"", "0: the file ends where the word LTF is expected"},
      {"\nLTFX\n", "2: it begins with \"LTFX\", not with \"LTF\""},
      {"ltf\n", "1: it begins with \"ltf\", not with \"LTF\""},
      {"LTF\n1.0001\n", "2: the version is \"1.0001\", not 1.0"},
      {"LTF\none\n", "2: the version is \"one\", not 1.0"},
      {"LTF\n1\n2\n{\n", "4: the file ends where a header line is expected"},
      {"LTF\n1\n0\n1\n{\nEat\n0\n1\n", "8: the \"}\" of a track is expected here, not \"1\""},
      {"LTF\n1\n0\n1\n {\n", "5: the \"{\" of a track is expected here, not \" {\""},
      {"LTF\n1\n0\n2147483647\n{\nEat\n16777216\n1 1\n2 2\n",
       "9: the file ends where a line of keys is expected"},
      {"LTF\n1\n0\n2\n{\nEat\n1\n0 0\n}\n{\nIf\n16777216\n0 0\n",
       "12: 16777216 keys make more than the 16777216 that a file may have"},
      {"LTF\n1\n0\n99999999999\n", "4: the file ends where the \"{\" of a track is expected"}};
  for (const auto& [text, refusal] : cases) {
    EXPECT_EQ(Refusal(text), refusal) << text;
  }
  TAnimation animation;
  ReadProblem problem;
  EXPECT_FALSE(LoadLtfFile("/no/such/file", animation, problem));
  EXPECT_EQ(problem.line, 0);
  EXPECT_EQ(problem.reason, "No such file or directory");
}

TEST(LtfReader, KeepsTheTracksThatWereCompleteBeforeAFailure) {
  const std::string text = kWhole;
  const std::size_t lastBrace = text.rfind("} end");
  std::size_t most = 0;
  for (std::size_t length = 0; length < text.size(); ++length) {
    TAnimation animation;
    const bool read = Refusal(text.substr(0, length), animation).empty();
    ASSERT_EQ(read, length > lastBrace) << length;
    ASSERT_EQ(animation.length, read ? 120 : 0) << "only a whole file is digested";
    const std::size_t tracks = animation.tracks.size() + animation.expressionTracks.size();
    ASSERT_GE(tracks, most) << length;
    most = tracks;
    if (!read && length > text.find("Blink")) {
      ASSERT_EQ(tracks, 2U) << length;
    }
  }
  EXPECT_EQ(most, 3U);
}

TEST(LtfWriter, WritesWhatTheReaderReadsBackKeyForKey) {
  std::mt19937 random(26);
  TAnimation written;
  for (const int count : {0, 1, 24, 25, 26, 27, 50, 51, 52, 77, 78, 300}) {
    TAnimationTrack track;
    track.name = " a name, \xE4 " + std::to_string(count);
    for (int i = 0; i < count; ++i) {
      const int time = static_cast<int>(random());
      track.AddKey({time, std::uniform_real_distribution<>(-1, 2)(random) / (1 + i * 1e30)});
    }
    count % 2 == 0 ? written.AddTrack(track) : written.AddExpressionTrack(track);
  }
  written.tracks[1].AddKey({kFirst, std::numeric_limits<double>::denorm_min()});
  const test::CommaLocale comma;
  const test::TemporaryFolder folder;
  const std::string file = folder.Path("a.ltf");
  ASSERT_TRUE(WriteLtfFile(file, written, {"made by a test", "{"}));
  TAnimation read;
  ReadProblem problem;
  ASSERT_TRUE(LoadLtfFile(file, read, problem)) << problem.reason;
  const auto expectSame = [](const std::vector<TAnimationTrack>& a,
                             const std::vector<TAnimationTrack>& b) {
    ASSERT_EQ(a.size(), b.size());
    for (std::size_t i = 0; i < a.size(); ++i) {
      EXPECT_EQ(a[i].name, b[i].name);
      EXPECT_EQ(KeysOf(a[i]), KeysOf(b[i])) << a[i].name;
    }
  };
  expectSame(read.tracks, written.tracks);
  expectSame(read.expressionTracks, written.expressionTracks);
}

TEST(LtfWriter, RefusesWhatWouldNotComeBackAndKeepsTheOldFile) {
  const test::TemporaryFolder folder;
  const std::string file = folder.Make("a.ltf", "old");
  std::string reason;
  TAnimation animation;
  animation.AddTrack(TAnimationTrack());
  for (const char* name : {"", "a//b", "a\nb", "a\r"}) {
    EXPECT_FALSE(WriteLtfFile(file, TAnimation(), {name}, reason)) << name;
    animation.tracks[0].name = name;
    EXPECT_FALSE(WriteLtfFile(file, animation, {}, reason)) << name;
  }
  animation.tracks[0].name = "Eat";
  ASSERT_TRUE(LtfText(animation, {}, reason, reason));
  animation.tracks[0].AddKey({5, std::numeric_limits<double>::infinity()});
  EXPECT_FALSE(WriteLtfFile(file, animation, {}, reason));
  EXPECT_EQ(reason, "track Eat has a value that is not finite at time 5");
  EXPECT_EQ(folder.Content("a.ltf"), "old");
  EXPECT_FALSE(WriteLtfFile("/no/such/folder/a.ltf", TAnimation()));
}

}  // namespace
}  // namespace lipvane
