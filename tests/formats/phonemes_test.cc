#include "lipvane/formats/phonemes.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "lipvane/formats/data_lines.h"

namespace lipvane {
namespace {

TEST(DefaultPhonemeTable, GivesEachPhonemeItsSpeechTarget) {
  const std::map<std::string_view, std::vector<std::string_view>> phonemesOf = {
      {"Eat 0.85", {"Iy"}},
      {"Earth 0.85", {"Er"}},
      {"If 0.85", {"Ih", "Eh", "Ey", "Ae", "Aw", "Ay", "Ah", "Ax", "Hh"}},
      {"If 0.20", {"ShortSil"}},
      {"Ox 0.85", {"Aa", "Ao"}},
      {"Oat 0.85", {"Oy", "Ow", "Uh", "Uw"}},
      {"Wet 0.85", {"W", "Y"}},
      {"Size 0.85", {"S", "Z"}},
      {"Church 0.85", {"Sh", "Zh", "Jh", "Ch"}},
      {"Fave 0.70", {"F", "V"}},
      {"Though 0.85", {"Th", "Dh"}},
      {"Told 0.85", {"L", "D", "T"}},
      {"Told 0.50", {"Flap"}},
      {"Bump 0.85", {"M", "B", "P"}},
      {"New 0.85", {"N", "Ng"}},
      {"Roar 0.85", {"R"}},
      {"Cage 0.20", {"G", "K"}},
      {"", {"Sil"}}};
  std::map<std::string_view, std::vector<std::string_view>> found;
  std::vector<std::string> keys(kPhonemeCount);
  const auto rows = SplitTokens(DefaultPhonemeTable, '\n');
  ASSERT_EQ(rows.size(), static_cast<std::size_t>(kPhonemeCount));
  for (std::size_t p = 0; p < rows.size(); ++p) {
    const auto tokens = SplitTokens(rows[p], ' ');
    ASSERT_EQ(tokens.size(), 1 + kSpeechTargetNames.size()) << rows[p];
    for (std::size_t t = 0; t < kSpeechTargetNames.size(); ++t) {
      if (tokens[1 + t] == "0.00") continue;
      EXPECT_EQ(keys[p], "") << "two weights: " << rows[p];
      keys[p] = std::string(kSpeechTargetNames[t]) + " " + std::string(tokens[1 + t]);
    }
    found[keys[p]].push_back(tokens[0]);
  }
  EXPECT_EQ(found, phonemesOf);
  EXPECT_EQ(SplitTokens(rows[39], ' ')[0], "Ch");
}

TEST(SpeechTargetNames, AreTheNamesLine) {
  std::string line;
  for (const char* name : kSpeechTargetNames)
    line += (line.empty() ? "" : " ") + std::string(name);
  EXPECT_EQ(line, kSpeechTargetNamesLine);
}

TEST(PhonemeMapping, NamesAreEmptyOutOfRange) {
  PhonemeMapping mapping;
  EXPECT_EQ(mapping.GetSpeechTargetName(0), "");
  mapping.AddSpeechTarget("Eat");
  mapping.AddPhoneme("Iy", {0.85F});
  EXPECT_EQ(mapping.GetSpeechTargetName(0), "Eat");
  EXPECT_EQ(mapping.GetPhonemeName(0), "Iy");
  for (const int i : {-1, 1, 2147483647}) {
    EXPECT_EQ(mapping.GetSpeechTargetName(i), "");
    EXPECT_EQ(mapping.GetPhonemeName(i), "");
  }
}

TEST(PhonemeMapping, MakesAWeightByReadingIt) {
  PhonemeMapping mapping;
  mapping.speechTargets = {"Eat", "Ox", "If"};
  mapping.AddPhoneme("Iy", {0.85F});
  mapping.phonemes.emplace_back("Aa");
  float weight = 7.0F;
  ASSERT_TRUE(mapping.GetWeight(0, 0, weight));
  EXPECT_EQ(weight, 0.85F);
  ASSERT_TRUE(mapping.GetWeight(1, 1, weight));
  EXPECT_EQ(weight, 0.0F);
  EXPECT_EQ(mapping.weights, (std::vector<std::vector<float>>{{0.85F}, {0.0F, 0.0F}}));
}

TEST(PhonemeMapping, RefusesIndicesOutOfRange) {
  PhonemeMapping mapping;
  mapping.AddSpeechTarget("Eat");
  mapping.AddPhoneme("Iy", {0.85F, 0.1F});
  float weight = 7.0F;
  EXPECT_FALSE(mapping.GetWeight(-1, 0, weight));
  EXPECT_FALSE(mapping.GetWeight(1, 0, weight));
  EXPECT_FALSE(mapping.GetWeight(0, -1, weight));
  EXPECT_FALSE(mapping.GetWeight(0, 1, weight));
  EXPECT_EQ(weight, 7.0F);
  EXPECT_EQ(mapping.weights.size(), 1U);
}

}  // namespace
}  // namespace lipvane
