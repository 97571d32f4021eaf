#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "lipvane/formats/lbp.h"
#include "lipvane/formats/limits.h"
#include "tests/formats/sample_lbp.h"
#include "tests/support/comma_locale.h"
#include "tests/support/temporary_folder.h"

namespace lipvane {
namespace {

using Names = std::vector<std::string>;
using Replacements = std::vector<std::pair<std::string, std::string>>;
using test::SampleLbp;

/// Both objects, not empty before, so that appending shows and so does a refusal that changes them.
struct Rig {
  Rig() {
    poseInfo.AddBone("earlier");
    poseInfo.AddPose(TBonePose());
    mapping.AddSpeechTarget("earlier");
    mapping.AddPhoneme("earlier", {1.0F});
  }

  bool Read(const std::string& text) { return ReadLbpText(text, poseInfo, mapping, problem); }

  bool Untouched() const {
    return poseInfo.boneNames == Names{"earlier"} && poseInfo.poses.size() == 1 &&
           mapping.speechTargets == Names{"earlier"} && mapping.phonemes == Names{"earlier"} &&
           mapping.weights == std::vector<std::vector<float>>{{1.0F}};
  }

  /// Whether all that the sample's counts announce has been added.
  bool Complete() const {
    return poseInfo.boneNames.size() == 3 && poseInfo.poses.size() == 3 &&
           mapping.speechTargets.size() == 3 && mapping.phonemes.size() == 44 &&
           mapping.weights.size() == 44 && poseInfo.poses[1].BoneCount() == 2 &&
           poseInfo.poses[2].BoneCount() == 2;
  }

  TIndexedBone Bone(int pose, int bone) { return poseInfo.GetPose(pose + 1).GetBone(bone); }
  std::vector<float> Row(int phoneme) {
    return mapping.weights.at(1 + static_cast<std::size_t>(phoneme));
  }

  TBonePoseInfo poseInfo;
  PhonemeMapping mapping;
  ReadProblem problem;
};

TEST(ReadLbpFile, AppendsWhatItReadsWithEitherLineEnd) {
  std::string withReturns;
  for (const char c : SampleLbp())
    withReturns += c == '\n' ? std::string("\r\n") : std::string(1, c);
  const test::CommaLocale comma;
  const test::TemporaryFolder folder;
  for (const std::string& text : {SampleLbp(), withReturns}) {
    Rig rig;
    ASSERT_TRUE(ReadLbpFile(folder.Make("a.lbp", text), rig.poseInfo, rig.mapping));
    ASSERT_TRUE(rig.Complete());
    EXPECT_EQ(rig.poseInfo.boneNames, (Names{"earlier", "jaw", "head"}));
    EXPECT_EQ(rig.mapping.speechTargets, (Names{"earlier", "Eat", "Ox"}));
    EXPECT_EQ(rig.mapping.phonemes[43], "P42");
    EXPECT_EQ(rig.Row(42), (std::vector<float>{0.42F, 0.5F}));
    EXPECT_EQ(rig.Bone(1, 0).translation, Vector3(1.0F, 0.0F, 0.5F));
    EXPECT_EQ(rig.Bone(0, 1).translation, Vector3(0.0F, 1.0F, 0.5F));
    EXPECT_EQ(rig.Bone(0, 1).rotation, Quaternion(1.0F, 2.0F, 3.0F, 4.0F));
    EXPECT_EQ(rig.Bone(0, 1).boneIndex, 1);
  }
}

TEST(ReadLbp, TakesTheVersionByItsIntegerPrefix) {
  EXPECT_TRUE(Rig().Read(SampleLbp({{"// Version\n2", "// Version\n2.5 x"}})));
  const std::vector<std::pair<std::string, std::string>> others = {
      {"3", "3"}, {"-2", "-2"}, {"x2", "0"}, {"20", "20"}, {" ", "0"}};
  for (const auto& [text, number] : others) {
    Rig rig;
    EXPECT_FALSE(rig.Read(SampleLbp({{"// Version\n2", "\n" + text}}))) << text;
    EXPECT_TRUE(rig.Untouched());
    EXPECT_EQ(rig.problem.line, 2);
    EXPECT_EQ(rig.problem.reason, "the version is " + number + ", not 2");
  }
}

TEST(ReadLbp, FillsShortLinesUp) {
  Rig rig;
  ASSERT_TRUE(rig.Read(SampleLbp({{"Eat Ox", "Eat"},
                                  {"P7 0.07 0.50", "P7 0.07"},
                                  {"P8 0.08 0.50", "P8  0.08 0.50"},
                                  {"P9 0.09 0.50", "P9 x .25y 0.75"},
                                  {"jaw -> head", "jaw"},
                                  {"0 1 0.5 1 1 1 1 2 3 4\n\n// Bone Pose 1", "5 6"}})))
      << rig.problem.reason;
  EXPECT_EQ(rig.mapping.speechTargets, (Names{"earlier", "Eat", ""}));
  EXPECT_EQ(rig.Row(7), (std::vector<float>{0.07F, 0.0F}));
  EXPECT_EQ(rig.Row(8), (std::vector<float>{0.08F, 0.0F}));
  EXPECT_EQ(rig.Row(9), (std::vector<float>{0.0F, 0.25F}));
  EXPECT_EQ(rig.poseInfo.boneNames[1], "jaw");
  EXPECT_EQ(rig.Bone(0, 1).translation, Vector3(5.0F, 6.0F, 0.0F));
  EXPECT_EQ(rig.Bone(0, 1).rotation, Quaternion(0.0F, 0.0F, 0.0F, 0.0F));
}

TEST(ReadLbp, DoesNotLoopForCountsBelowOne) {
  Rig rig;
  ASSERT_TRUE(rig.Read(
      SampleLbp({{"// Number of Speech Targets\n2", "-1"}, {"2 // poses", "-2147483648"}})));
  EXPECT_EQ(rig.mapping.speechTargets.size(), 1U);
  EXPECT_TRUE(rig.Row(42).empty());
  EXPECT_EQ(rig.poseInfo.poses.size(), 1U);
}

TEST(ReadLbp, RefusesHostileCounts) {
  const std::string targets = "// Number of Speech Targets\n2";
  const std::string vast = "2147483647";
  for (const Replacements& replacements :
       {Replacements{{targets, "99999999999999999999"}}, Replacements{{"2 // bones", vast}},
        Replacements{{"2 // poses", vast}},
        Replacements{
            {"2 // bones", "0"}, {"jaw -> head\nhead -> world\n", ""}, {"2 // poses", vast}}}) {
    Rig rig;
    EXPECT_FALSE(rig.Read(SampleLbp(replacements)));
    EXPECT_TRUE(rig.Untouched());
    EXPECT_FALSE(rig.problem.reason.empty());
  }
  Rig rig;
  EXPECT_TRUE(rig.Read(SampleLbp({{targets, std::to_string(kMaxSpeechTargets)}})));
  EXPECT_FALSE(rig.Read(SampleLbp({{targets, std::to_string(kMaxSpeechTargets + 1)}})));
  EXPECT_EQ(rig.problem.reason, "4097 speech targets are more than the 4096 that a file may have");
}

TEST(ReadLbp, RefusesTextThatEndsEarly) {
  const std::string text = SampleLbp();
  const std::size_t lastLine = text.rfind("\n1 0 0") + 1;
  for (std::size_t length = 0; length < text.size(); ++length) {
    if (length > 0 && text.compare(length - 1, 2, "//") == 0) continue;  // half of it is data
    Rig rig;
    const bool read = rig.Read(text.substr(0, length));
    // A line cut short still counts as a line.
    ASSERT_EQ(read, length > lastLine) << length;
    ASSERT_TRUE(read ? rig.Complete() : rig.Untouched()) << length;
  }
  Rig rig;
  EXPECT_FALSE(rig.Read(text.substr(0, text.find("// Number of Bones"))));
  EXPECT_EQ(rig.problem.line, 53);
  EXPECT_EQ(rig.problem.reason, "the file ends where the number of bones is expected");
}

TEST(ReadLbpFile, SaysWhyItCannot) {
  Rig rig;
  EXPECT_FALSE(ReadLbpFile("/no/such/file", rig.poseInfo, rig.mapping, rig.problem));
  EXPECT_TRUE(rig.Untouched());
  EXPECT_EQ(rig.problem.line, 0);
  EXPECT_EQ(rig.problem.reason, "No such file or directory");
}

}  // namespace
}  // namespace lipvane
