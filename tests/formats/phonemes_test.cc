#include "lipvane/formats/phonemes.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "lipvane/formats/data_lines.h"
#include "tests/support/comma_locale.h"
#include "tests/support/temporary_folder.h"

namespace lipvane {
namespace {

TEST(DefaultPhonemeTable, GivesEachPhonemeItsSpeechTarget) {
  std::string found;
  for (const std::string_view row : SplitTokens(DefaultPhonemeTable, '\n')) {
    const auto tokens = SplitTokens(row, ' ');
    ASSERT_EQ(tokens.size(), 1 + kSpeechTargetNames.size()) << row;
    found += tokens[0];
    for (std::size_t t = 0; t < kSpeechTargetNames.size(); ++t) {
      if (tokens[1 + t] == "0.00") continue;
      found += std::string(" ") + kSpeechTargetNames[t];
      if (tokens[1 + t] != "0.85") found += "=" + std::string(tokens[1 + t]);
    }
    found += ", ";
  }
  EXPECT_EQ(
      found,
      "Iy Eat, Ih If, Eh If, Ey If, Ae If, Aa Ox, Aw If, Ay If, Ah If, Ao Ox, Oy Oat, Ow Oat, "
      "Uh Oat, Uw Oat, Er Earth, Ax If, S Size, Sh Church, Z Size, Zh Church, F Fave=0.70, "
      "Th Though, V Fave=0.70, Dh Though, M Bump, N New, Ng New, L Told, R Roar, W Wet, Y Wet, "
      "Hh If, B Bump, D Told, Jh Church, G Cage=0.20, P Bump, T Told, K Cage=0.20, Ch Church, "
      "Sil, ShortSil If=0.20, Flap Told=0.50, ");
}

TEST(PhonemeMapping, AnswersNothingOutOfRange) {
  PhonemeMapping mapping;
  mapping.AddSpeechTarget("Eat");
  mapping.AddPhoneme("Iy", {0.85F, 0.1F});
  float weight = 7.0F;
  for (const int i : {-1, 1, 2147483647}) {
    EXPECT_EQ(mapping.GetSpeechTargetName(i), "");
    EXPECT_EQ(mapping.GetPhonemeName(i), "");
    EXPECT_FALSE(mapping.GetWeight(i, 0, weight));
    EXPECT_FALSE(mapping.GetWeight(0, i, weight));
  }
  EXPECT_EQ(weight, 7.0F);
  EXPECT_EQ(mapping.weights.size(), 1U);
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

TEST(LipsincMap, HasTheBytesOfATextModeStream) {
  PhonemeMapping mapping;
  mapping.speechTargets = {"Eat", "Ox", "If"};
  mapping.AddPhoneme("Iy", {0.85F, 0.125F, -1.0F});
  mapping.AddPhoneme("Aa", {2.5e6F});
  const test::CommaLocale comma;
  const test::TemporaryFolder folder;
  mapping.WriteLipsincMap(folder.Path("a.map"), "Face");
  EXPECT_EQ(folder.Content("a.map"),
            "; Face.map\r\r\n;\r\r\n; LIPSinc Phoneme Mapping File for Face\r\r\n;\r\r\n"
            "; Eat Ox If \r\r\n\r\r\n[PhonemeToSpeechTargetMapping]\r\r\n"
            "NumSpeechTargets=3\r\r\nIy=0.85, 0.12, -1.00\r\r\n"
            "Aa=2500000.00, 0.00, 0.00\r\r\n");
  EXPECT_EQ(mapping.weights[1].size(), 3U) << "what is missing is made";
  mapping.WriteLipsincMap("/no/such/folder/a.map", "Face");  // in silence
}

TEST(LipsincMap, WithoutSpeechTargetsTheRowsHaveNoLineEnds) {
  PhonemeMapping mapping;
  const std::string header =
      "; .map\r\r\n;\r\r\n; LIPSinc Phoneme Mapping File for \r\r\n;\r\r\n; \r\r\n\r\r\n"
      "[PhonemeToSpeechTargetMapping]\r\r\nNumSpeechTargets=0\r\r\n";
  EXPECT_EQ(mapping.LipsincMapText(""), header);
  mapping.AddPhoneme("Iy", {});
  mapping.AddPhoneme("Ih", {1.0F});
  EXPECT_EQ(mapping.LipsincMapText(""), header + "Iy=Ih=");
}

}  // namespace
}  // namespace lipvane
