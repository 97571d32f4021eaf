// A clean file of each kind, and for each rule the smallest change that breaks just that one.

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <set>

#include "lipvane/check/lbp_check.h"
#include "lipvane/check/ltf_check.h"
#include "lipvane/check/rules.h"
#include "lipvane/check/scene_check.h"
#include "lipvane/formats/lbp.h"
#include "lipvane/formats/ltf.h"
#include "lipvane/text/printable.h"
#include "tests/support/temporary_folder.h"

namespace lipvane::check {
namespace {

using Lines = std::vector<std::string>;
using Findings = std::vector<Finding>;

/// What stands instead of a line, counted from 1: several lines, or none.
struct Change {
  std::size_t line;
  Lines instead;
};

std::string Changed(Lines lines, const std::vector<Change>& changes) {
  for (auto change = changes.rbegin(); change != changes.rend(); ++change) {
    const auto at = lines.begin() + static_cast<std::ptrdiff_t>(change->line) - 1;
    lines.insert(lines.erase(at), change->instead.begin(), change->instead.end());
  }
  std::string text;
  for (const std::string& line : lines)
    text += line + "\n";
  return text;
}

std::string Written(const Findings& findings) {
  std::string text;
  for (const Finding& f : findings)
    text += std::to_string(f.line) + " " + std::string(f.rule.id) + ": " +
            text::PrintableLine(f.text) + "\n";
  return text;
}

/// Holds the words of findings against the part of a file that has them all.
void ExpectWords(const std::string& part, const std::string& said) {
  const std::string all = test::FileContent(LIPVANE_SOURCE_DIR "/tests/data/findings.txt");
  const std::size_t begin = all.find("== " + part + "\n");
  ASSERT_NE(begin, std::string::npos);
  const std::string words = "== " + part + "\n" + said + "==";
  EXPECT_EQ(all.substr(begin, words.size()), words);
}

void ExpectOnly(const Findings& findings, const Rule& rule, std::size_t line, std::string& said) {
  said += Written(findings);
  ASSERT_EQ(findings.size(), 1U) << rule.id << "\n" << Written(findings);
  EXPECT_EQ(findings[0].rule.id, rule.id) << findings[0].text;
  EXPECT_EQ(findings[0].line, line) << findings[0].text;
  EXPECT_EQ(findings[0].file, "file");
}

const std::string kMatrix = "1 0 0 0 0 1 0 0 0 0 1 0 1 2 3 1 ";
const std::string kBone = kMatrix + "1 2 3 1 1 1 -0.6 0.8 0 1e-007";

/// Two speech targets; the phonemes' rows are lines 4 to 46, two bones 48 and 49, their assignments
/// 50 to 52, the bone lines 54 and on.
Lines CleanLbp(int poses = 7) {
  Lines lines = {"2", "2", "Eat Ox"};
  for (int i = 0; i < 43; ++i)
    lines.push_back("P" + std::to_string(i) + " 0.5 0.00");
  for (const char* line : {"2", "jaw -> head", "head -> world", "head_bone=head",
                           "left_eye_bone=undefined", "right_eye_bone=undefined"})
    lines.emplace_back(line);
  lines.push_back(std::to_string(poses));
  lines.insert(lines.end(), static_cast<std::size_t>(2 * poses), kBone);
  return lines;
}

Findings LbpFindings(const std::string& text) {
  Findings findings;
  CheckLbp("file", text, findings);
  return findings;
}

TEST(LbpCheck, ACleanFileHasNoFindings) {
  EXPECT_EQ(Written(LbpFindings(Changed(CleanLbp(), {}))), "");
  // Blanks at the end, comments and line ends of another system do no harm.
  EXPECT_EQ(
      Written(LbpFindings(Changed(CleanLbp(), {{2, {"// two", "", "2 // targets\r"}},
                                               {3, {"Eat Ox "}},
                                               {5, {"a=1 0.5 0.00 \t"}},
                                               {47, {"\t+2\t"}},
                                               {50, {"none"}},
                                               {51, {"none"}},
                                               {52, {"none"}},
                                               {54, {kMatrix + "1 2 3 1 1 1 -1.0005 0 0 0  \r"}},
                                               {55, {kBone + "\t"}},
                                               {67, {kBone, " ", "\t// end"}}}))),
      "");
}

TEST(LbpCheck, EachRuleAlone) {
  const struct {
    Rule rule;
    std::size_t line;
    std::vector<Change> changes;
  } cases[] = {
      {rule::kUnreadable, 1, {{1, {"3"}}}},
      {rule::kUnreadable, 1, {{1, {"\xEF\xBB\xBF\x32"}}}},
      {rule::kCountMissing, 2, {{2, {"two"}}}},
      {rule::kCountMissing, 2, {{2, {}}}},
      {rule::kCountMissing, 47, {{47, {"two"}}}},
      {rule::kCountMissing, 53, {{53, {"seven"}}}},
      {rule::kCountText, 1, {{1, {"2.5"}}}},
      {rule::kCountText, 2, {{2, {"2 targets"}}}},
      {rule::kCountText, 47, {{47, {"2.5"}}}},
      {rule::kCountText, 53, {{53, {"7.9"}}}},
      {rule::kBlankLine, 3, {{3, {" ", "Eat Ox"}}}},
      {rule::kBlankLine, 48, {{48, {"\t// bones", "jaw -> head"}}}},
      {rule::kTab, 3, {{3, {"Eat\tOx"}}}},
      {rule::kTab, 5, {{5, {"P1\t0.5\t0"}}}},
      {rule::kTab, 54, {{54, {kMatrix + "1\t2 3 1 1 1 1 0 0 0"}}}},
      {rule::kSpeechTargetCount, 2, {{2, {"1"}}}},
      {rule::kSpeechTargetCount, 2, {{2, {"-2"}}}},
      {rule::kSpeechTargetCount, 2, {{3, {}}}},
      {rule::kSpeechTargetCount, 2, {{2, {"2000000000"}}}},
      {rule::kSpeechTargetCount, 2, {{3, {"Eat Ox Oat"}}}},
      {rule::kPhonemeRows, 46, {{46, {}}}},
      {rule::kPhonemeRows, 47, {{46, {"P42 0 0", "P43 0 0"}}}},
      {rule::kPhonemeWeights, 5, {{5, {"P1 0.5"}}}},
      {rule::kPhonemeWeights, 5, {{5, {"P1 0.5 0 0"}}}},
      {rule::kBoneCount, 47, {{47, {"3"}}}},
      {rule::kBoneCount, 47, {{47, {"2000000000"}}}},
      {rule::kBoneCount, 47, {{47, {"-2"}}}},
      {rule::kBoneCount, 47, {{48, {}}}},
      {rule::kBoneCount, 47, {{47, {}}}},
      {rule::kHierarchyLine, 48, {{48, {"jaw"}}}},
      {rule::kHierarchyLine, 49, {{48, {"jaw -> head", "stray line"}}}},
      {rule::kHierarchyLine, 48, {{48, {"12"}}}},
      {rule::kHierarchyLine, 48, {{48, {" jaw -> head"}}}},
      {rule::kHierarchyLine, 48, {{48, {"jaw\t -> head"}}}},
      {rule::kHierarchyLine, 48, {{48, {"jaw ->  head"}}}},
      {rule::kAssignments, 52, {{52, {}}}},
      {rule::kAssignments, 53, {{52, {"right_eye_bone=a", "tongue_bone=b"}}}},
      {rule::kBoneLineCount, 53, {{54, {}}}},
      {rule::kBoneLineCount, 53, {{54, {kBone, kBone}}}},
      {rule::kBoneLineCount, 53, {{53, {"5"}}}},
      {rule::kBoneLineCount, 53, {{53, {}}}},
      {rule::kBoneLineCount, 53, {{53, {"-7"}}}},
      {rule::kUnreadLines, 68, {{67, {kBone, "the end", "x=1"}}}},
      {rule::kEmptyName, 48, {{48, {" -> head"}}}},
      {rule::kEmptyName, 5, {{5, {" 0.5 0.5"}}}},
      {rule::kEmptyName, 5, {{5, {"0.5 0.5"}}}},
      {rule::kDuplicateBone, 49, {{49, {"jaw -> world"}}}},
      {rule::kDuplicateSpeechTarget, 3, {{3, {"Eat Eat"}}}},
      {rule::kDuplicatePhoneme, 5, {{5, {"P0 0.5 0.00"}}}},
      {rule::kDoubledBlank, 3, {{3, {"Eat  Ox"}}}},
      {rule::kDoubledBlank, 5, {{5, {"P1  0.5 0"}}}},
      {rule::kDoubledBlank, 54, {{54, {" " + kBone}}}},
      {rule::kDoubledBlank, 54, {{54, {kMatrix + " 1 2 3 1 1 1 1 0 0 0"}}}},
      {rule::kBoneLineShort, 54, {{54, {kMatrix + "1 2 3 1 1 1 1 0 0"}}}},
      {rule::kBoneLineLong, 54, {{54, {kBone + " 0"}}}},
      {rule::kNotANumber, 5, {{5, {"P1 0.5 0,5"}}}},
      {rule::kNotANumber, 54, {{54, {kMatrix + "0,1 0,2 3 1 1 1 1 0 0 0"}}}},
      {rule::kNotANumber, 54, {{54, {kMatrix + "nan 2 3 1 1 1 1 0 0 0"}}}},
      {rule::kNotANumber, 54, {{54, {kMatrix + "1e39 2 3 1 1 1 1 0 0 0"}}}},
      {rule::kNotANumber, 54, {{54, {kMatrix + "1 2 3 1 1 1 1.0x 0 0 0"}}}},
      {rule::kRotationLength, 54, {{54, {kMatrix + "1 2 3 1 1 1 -1.0015 0 0 0"}}}},
  };
  std::string said;
  for (const auto& c : cases)
    ExpectOnly(LbpFindings(Changed(CleanLbp(), c.changes)), c.rule, c.line, said);
  ExpectOnly(LbpFindings(Changed(CleanLbp(2), {})), rule::kSpeechPoses, 53, said);
  ExpectOnly(LbpFindings(Changed(CleanLbp(6), {})), rule::kExpressionPoses, 53, said);
  ExpectWords("bone pose files", said);
}

// Titles part the poses: the one that has a line too few is named, and a bone's scale just once.
TEST(LbpCheck, PosesThatArePartedAreCountedOneByOne) {
  std::vector<Change> titles;
  for (std::size_t line = 56; line < 68; line += 2)
    titles.push_back({line, {"// pose", kBone}});
  EXPECT_EQ(Written(LbpFindings(Changed(CleanLbp(), titles))), "");
  const std::string scaled = kMatrix + "1 2 3 1 1 1 2 0 0 0";
  titles[0].instead = {"// pose", scaled};
  titles[2].instead = {"// pose"};
  titles[4].instead = {"// pose", scaled, kBone};
  EXPECT_EQ(Written(LbpFindings(Changed(CleanLbp(), titles))),
            "57 rotation-length: bone \"jaw\" in pose 1 has a rotation of length 2, not 1 (in 2 "
            "poses)\n"
            "63 bone-line-count: pose 3 has 1 bone line, not 2\n"
            "68 bone-line-count: pose 5 has 3 bone lines, not 2\n");
}

TEST(LbpCheck, FindingsStandInOrderOfLine) {
  const Findings found = LbpFindings(
      Changed(CleanLbp(), {{2, {"1"}}, {5, {"P0 1 x"}}, {49, {"jaw -> a"}}, {55, {"0"}}}));
  std::string lines;
  for (const Finding& finding : found)
    lines += std::to_string(finding.line) + " ";
  EXPECT_EQ(lines, "2 5 5 49 55 ");
}

TEST(LbpCheck, ManyFindingsOfARuleEndInTheirNumber) {
  Lines lines = CleanLbp(600);
  std::fill(lines.begin() + 53, lines.end(), kBone + " 0");
  const Findings found = LbpFindings(Changed(lines, {}));
  ASSERT_EQ(found.size(), kMostOfARule + 1);
  EXPECT_EQ(found.back().line, 53 + kMostOfARule + 1);
  EXPECT_EQ(found.back().text, "200 more findings of this rule, up to line 1253");
}

/// Eat has 27 keys on lines 9 and 10, Ox three on line 15; two expressions have none.
Lines CleanLtf() {
  std::string first = "0 0";
  for (int i = 1; i < 25; ++i)
    first += " " + std::to_string(i * 10) + " 0.5";
  return {"LTF", "1.0", "1",           "{",          "2",
          "{",   "Eat", "27",          first,        "250 1 260 0",
          "}",   "{",   "Ox",          "3",          "0 0 10 1e-05 20 0",
          "}",   "2",   "{",           "Blink_Left", "0",
          "}",   "{",   "Blink_Right", "0",          "}"};
}

Findings LtfFindings(const std::string& text) {
  Findings findings;
  CheckLtf("file", text, {{"Eat", "Ox"}, {"Blink_Left", "Blink_Right"}}, findings);
  return findings;
}

TEST(LtfCheck, ACleanFileHasNoFindings) {
  EXPECT_EQ(Written(LtfFindings(Changed(CleanLtf(), {}))), "");
  EXPECT_EQ(Written(LtfFindings(Changed(
                CleanLtf(),
                {{4, {" "}}, {8, {"27\t"}}, {15, {"0 0 10 1 20 0\t // keys"}}, {25, {"}", " "}}}))),
            "");
}

TEST(LtfCheck, EachRuleAlone) {
  const struct {
    Rule rule;
    std::size_t line;
    Change change;
  } cases[] = {
      {rule::kUnreadable, 2, {2, {"1.1"}}},
      {rule::kUnreadable, 25, {25, {"x"}}},
      {rule::kCountMissing, 3, {3, {}}},
      {rule::kCountMissing, 6, {3, {"2"}}},
      {rule::kCountMissing, 4, {3, {"0"}}},
      {rule::kCountMissing, 12, {5, {"1"}}},
      {rule::kCountMissing, 14, {14, {"many"}}},
      {rule::kCountMissing, 14, {13, {}}},
      {rule::kBlankLine, 14, {14, {"  // count", "3"}}},
      {rule::kTab, 15, {15, {"0 0\t10 1 20 0"}}},
      {rule::kCountText, 14, {14, {"3.5"}}},
      {rule::kDoubledBlank, 15, {15, {"0 0  10 1 20 0"}}},
      {rule::kDoubledBlank, 15, {15, {" 0 0 10 1 20 0"}}},
      {rule::kNotANumber, 15, {15, {"0 0,5 10 1,5 20 0"}}},
      {rule::kNotANumber, 15, {15, {"0 0 x 1 20 0"}}},
      {rule::kKeyOrder, 15, {15, {"0 0 -1 1 -5 0"}}},
      {rule::kKeyOrder, 10, {10, {"230 1 260 0"}}},
      {rule::kEqualTimes, 15, {15, {"0 0 0 1 20 0"}}},
      {rule::kEqualLastTimes, 15, {15, {"0 0 20 1 20 0"}}},
      {rule::kEqualLastTimes, 15, {15, {"20 0 20 1 20 0"}}},
      {rule::kShortKeyLine, 15, {15, {"0 0 10 1 20"}}},
      {rule::kShortKeyLine, 9, {9, {"0 0 10 1"}}},
      {rule::kShortKeyLine, 10, {8, {"2000000"}}},
      {rule::kUnreadable, 8, {8, {"20000000"}}},
      {rule::kShortKeyLine, 15, {15, {"0 0", "10 1", "20 0"}}},
      {rule::kLongKeyLine, 15, {15, {"0 0 10 1 20 0 30 0"}}},
      {rule::kLongKeyLine, 9, {9, {CleanLtf()[8] + " 245 0"}}},
      {rule::kKeyTime, 15, {15, {"0 0 10.5 1 20 0"}}},
      {rule::kKeyTime, 15, {15, {"0 0 10 1 3e9 0"}}},
      {rule::kUnknownTrack, 13, {13, {"Ox "}}},
      {rule::kUnknownTrack, 23, {23, {"Smile"}}},
      {rule::kTrackOrder, 13, {13, {"Eat"}}},
      {rule::kDuplicateTrack, 23, {23, {"Blink_Left"}}},
      {rule::kUnreadLines, 26, {25, {"}", "more"}}},
      {rule::kUnreadTracks, 27, {25, {"}", "more", "{"}}},
      {rule::kUnreadTracks, 22, {17, {"1"}}},
  };
  std::string said;
  for (const auto& c : cases)
    ExpectOnly(LtfFindings(Changed(CleanLtf(), {c.change})), c.rule, c.line, said);
  ExpectWords("animation files", said);
}

TEST(LtfCheck, WhatATrackRepeatsIsSaidOnce) {
  const Findings found = LtfFindings(Changed(CleanLtf(), {{15, {"0 x 10 y 20 z"}}}));
  ASSERT_EQ(found.size(), 1U) << Written(found);
  EXPECT_EQ(found[0].text,
            "the value of key 1 of track \"Ox\", \"x\" is no finite number and read as 0, and 2 "
            "more in this track");
  EXPECT_EQ(Written(LtfFindings("\xEF\xBB\xBFL\tF\n")),
            "1 unreadable: it begins with \"\xEF\xBB\xBFL\\tF\", not with \"LTF\" (the file "
            "begins with a byte order mark)\n");
}

// A reader that stops must not leave its user without a word.
TEST(Check, WhatAReaderRefusesHasAnError) {
  const auto hasError = [](const Findings& findings) {
    return std::any_of(findings.begin(), findings.end(), [](const Finding& finding) {
      return finding.rule.severity == Severity::kError;
    });
  };
  const std::string lbp = Changed(CleanLbp(), {});
  for (std::size_t length = 0; length < lbp.size(); ++length) {
    TBonePoseInfo poses;
    PhonemeMapping mapping;
    ReadProblem problem;
    const std::string cut = lbp.substr(0, length);
    if (!ReadLbpText(cut, poses, mapping, problem)) {
      EXPECT_TRUE(hasError(LbpFindings(cut))) << length;
    }
  }
  const std::string ltf = Changed(CleanLtf(), {});
  for (std::size_t length = 0; length < ltf.size(); ++length) {
    TAnimation animation;
    ReadProblem problem;
    const std::string cut = ltf.substr(0, length);
    if (!ReadLtfText(cut, animation, problem)) {
      EXPECT_TRUE(hasError(LtfFindings(cut))) << length;
    }
  }
}

/// The clean pose file against a scene of a head and what follows.
Findings SceneFindings(const std::string& rest) {
  const auto scene = standalone::Scene::Parse(
      "//Maya ASCII 2024 scene\ncreateNode joint -n \"head\";\n" + rest, "face.ma");
  Findings findings;
  CheckAgainstScene("file", Changed(CleanLbp(), {}), scene, "face.ma", findings);
  return findings;
}

const std::string kJaw = "createNode joint -n \"jaw\" -p \"head\";\n";

const std::string kDriver = kJaw + "createNode expression -n \"e\";\n";

const std::string kCurve = "createNode animCurveTL -n \"c\";\n";

TEST(SceneCheck, ACleanSceneHasNoFindings) {
  EXPECT_EQ(Written(SceneFindings(kJaw)), "");
  EXPECT_EQ(Written(SceneFindings(kJaw + "setAttr \".ray\" 1e-14;\n")), "");
  // Scale gets no keys, a curve takes them, an instance is no second node.
  EXPECT_EQ(Written(SceneFindings(
                kJaw + "setAttr -l on \".sx\";\ncreateNode animCurveTL -n \"c\";\n"
                       "connectAttr \"c.o\" \"jaw.tx\";\ncreateNode transform -n \"g\";\n"
                       "parent -add \"jaw\" \"g\";\n")),
            "");
}

TEST(SceneCheck, EachRuleAlone) {
  const struct {
    Rule rule;
    std::string rest;
  } cases[] = {
      {rule::kBoneMissing, ""},
      {rule::kBoneNotJoint, "createNode transform -n \"jaw\";\n"},
      {rule::kBoneRepeated, kJaw + "createNode joint -n \"jaw\";\n"},
      {rule::kRotateOrder, kJaw + "setAttr \".ro\" 1;\n"},
      {rule::kRotateOrder, kDriver + "connectAttr \"e.out[0]\" \"jaw.ro\";\n"},
      {rule::kRotateAxis, kDriver + "connectAttr \"e.out[0]\" \"jaw.ray\";\n"},
      {rule::kRotateAxis, kJaw + "setAttr \".ra\" -type \"double3\" 0 0 5;\n"},
      {rule::kChannelDriven, kDriver + "connectAttr \"e.out[0]\" \"jaw.tx\";\n"},
      {rule::kChannelDriven, kJaw + kCurve +
                                 "createNode unitConversion -n \"u\";\n"
                                 "\tsetAttr \".cf\" 0;\n"
                                 "connectAttr \"c.o\" \"u.i\";\n"
                                 "connectAttr \"u.o\" \"jaw.tx\";\n"},
      {rule::kChannelDriven, kJaw + kCurve +
                                 "\tsetAttr \".ktv\" nonsense;\n"
                                 "connectAttr \"c.o\" \"jaw.tx\";\n"},
      {rule::kChannelLocked, kJaw + "setAttr -l on \".rz\";\n"},
  };
  std::string said;
  for (const auto& c : cases)
    ExpectOnly(SceneFindings(c.rest), c.rule, 48, said);
  ExpectWords("scenes", said);
}

// The keys of a name go to the last node that bears it.
TEST(SceneCheck, OfARepeatedNameTheLastIsLookedAt) {
  const std::string turned = "setAttr \".ro\" 1;\n";
  const std::string top = "createNode joint -n \"jaw\";\n";
  EXPECT_EQ(SceneFindings(kJaw + turned + top).size(), 1U);
  const Findings found = SceneFindings(kJaw + top + turned);
  ASSERT_EQ(found.size(), 2U) << Written(found);
  EXPECT_NE(found[0].text.find("go to \"|jaw\""), std::string::npos) << found[0].text;
  EXPECT_EQ(found[1].rule.id, rule::kRotateOrder.id);
  const std::string again = "createNode transform -n \"c\";\nparent -add \"|head|jaw\" \"c\";\n";
  const Findings instanced = SceneFindings(kJaw + turned + top + again);
  ASSERT_EQ(instanced.size(), 2U) << Written(instanced);
  EXPECT_EQ(instanced[1].rule.id, rule::kRotateOrder.id) << "its last path comes after the other's";
  const Findings shadowed = SceneFindings(kJaw + "createNode transform -n \"jaw\";\n");
  ASSERT_EQ(shadowed.size(), 2U) << Written(shadowed);
  EXPECT_EQ(shadowed[1].rule.id, rule::kBoneNotJoint.id);
}

TEST(Rules, AreThoseOfTheDocument) {
  std::ifstream file(LIPVANE_SOURCE_DIR "/docs/check.md");
  std::multiset<std::string> documented;
  for (std::string line; std::getline(file, line);) {
    // "| `rule` | severity | ..."
    const std::size_t end = line.find("` | ");
    if (line.substr(0, 3) != "| `" || end == std::string::npos) continue;
    const std::size_t severity = end + 4;
    documented.insert(line.substr(3, end - 3) + " " +
                      line.substr(severity, line.find(' ', severity) - severity));
  }
  std::multiset<std::string> known;
  for (const Rule& rule : kAllRules)
    known.insert(std::string(rule.id) + " " + SeverityName(rule.severity));
  EXPECT_EQ(documented, known);
}

}  // namespace
}  // namespace lipvane::check
