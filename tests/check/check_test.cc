// A clean file of each kind, and for each rule the smallest change that breaks just that one.

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <tuple>

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

std::string Changed(Lines lines, const std::vector<Change>& changes = {}) {
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

/// Holds what is found in each case of a part of findings.txt against what stands there.
template <typename Find>
void ExpectCases(const std::string& part, const Find& find) {
  std::ifstream file(LIPVANE_SOURCE_DIR "/tests/data/findings.txt");
  std::string line;
  while (line != "== " + part && std::getline(file, line)) {
  }
  int cases = 0;
  for (std::string change; std::getline(file, change) && change[0] != '='; ++cases) {
    std::getline(file, line);
    const Findings found = find(change);
    EXPECT_EQ("  " + Written(found), line + "\n") << change;
    for (const Finding& finding : found)
      EXPECT_EQ(finding.file, "file") << change;
  }
  EXPECT_GT(cases, 10) << part;
}

/// A change as findings.txt states it.
Change StatedChange(const std::string& change, const Lines& lines) {
  const std::size_t line = std::stoul(change);
  std::string instead = change.substr(change.find(':') + 1);
  if (instead.empty()) return {line, {}};
  const std::vector<std::pair<std::string, std::string>> marks = {
      {"\\n", "\n"}, {"\\t", "\t"}, {"$blank", " "}, {"$line", lines.at(line - 1)}};
  for (const auto& [mark, text] : marks) {
    for (std::size_t at = 0; (at = instead.find(mark, at)) != std::string::npos; at += text.size())
      instead.replace(at, mark.size(), text);
  }
  return {line, {instead.substr(1)}};
}

const std::string kMatrix = "1 0 0 0 0 1 0 0 0 0 1 0 1 2 3 1 ";
const std::string kNeutral = "1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1 0 0 0 1 1 1 -1 0 0 1e-007";
const std::string kBone = kMatrix + "1 2 3 1 1 1 -0.6 0.48 0 0.64";

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
  lines.insert(lines.end(), 2, kNeutral);
  lines.insert(lines.end(), static_cast<std::size_t>(2 * (poses - 1)), kBone);
  return lines;
}

Findings LbpFindings(const std::string& text) {
  Findings findings;
  CheckLbp("file", text, findings);
  return findings;
}

TEST(LbpCheck, ACleanFileHasNoFindings) {
  EXPECT_EQ(Written(LbpFindings(Changed(CleanLbp()))), "");
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
  ExpectCases("bone pose files", [](const std::string& change) {
    return LbpFindings(Changed(CleanLbp(), {StatedChange(change, CleanLbp())}));
  });
  EXPECT_EQ(Written(LbpFindings(Changed(CleanLbp(), {{1, {"\xEF\xBB\xBF\x32"}}}))),
            "1 unreadable: the version is 0, not 2 (the file begins with a byte order mark)\n");
  EXPECT_EQ(Written(LbpFindings(Changed(CleanLbp(2)))),
            "53 speech-poses: 2 poses are too few for the neutral one and 2 speech targets\n");
  EXPECT_EQ(Written(LbpFindings(Changed(CleanLbp(6)))),
            "53 expression-poses: 6 poses give only 3 of the 4 expressions\n");
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

TEST(LbpCheck, PosesThatMoveNothingAreNamed) {
  EXPECT_EQ(
      Written(LbpFindings(Changed(
          CleanLbp(), {{58, {kNeutral}}, {59, {kNeutral}}, {66, {kNeutral}}, {67, {kNeutral}}}))),
      "58 unmoved-pose: 2 of 6 poses are the neutral one and move nothing: \"Ox\", "
      "\"Blink_Right\" (posed on another frame? Pose 1 is at frame 10, pose 2 at 20 ...)\n");
  // One bone is enough.
  EXPECT_EQ(Written(LbpFindings(Changed(CleanLbp(), {{58, {kNeutral}}}))), "");
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
  for (auto line = lines.begin() + 53; line != lines.end(); ++line)
    *line += " 0";
  const Findings found = LbpFindings(Changed(lines));
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
  EXPECT_EQ(Written(LtfFindings(Changed(CleanLtf()))), "");
  EXPECT_EQ(Written(LtfFindings(Changed(
                CleanLtf(),
                {{4, {" "}}, {8, {"27\t"}}, {15, {"0 0 10 1 20 0\t // keys"}}, {25, {"}", " "}}}))),
            "");
}

TEST(LtfCheck, EachRuleAlone) {
  ExpectCases("animation files", [](const std::string& change) {
    return LtfFindings(Changed(CleanLtf(), {StatedChange(change, CleanLtf())}));
  });
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
  const auto expectErrors = [](const std::string& text, const auto& reads, const auto& find) {
    for (std::size_t length = 0; length < text.size(); ++length) {
      const std::string cut = text.substr(0, length);
      if (reads(cut)) continue;
      const Findings found = find(cut);
      EXPECT_TRUE(std::any_of(found.begin(), found.end(), [](const Finding& finding) {
        return finding.rule.severity == Severity::kError;
      })) << length;
    }
  };
  ReadProblem problem;
  const auto readsLbp = [&](const std::string& text) {
    TBonePoseInfo poses;
    PhonemeMapping mapping;
    return ReadLbpText(text, poses, mapping, problem);
  };
  const auto readsLtf = [&](const std::string& text) {
    TAnimation animation;
    return ReadLtfText(text, animation, problem);
  };
  expectErrors(Changed(CleanLbp()), readsLbp, LbpFindings);
  expectErrors(Changed(CleanLtf()), readsLtf, LtfFindings);
}

/// A pose file against a scene of a head and what follows.
Findings SceneFindings(const std::string& rest, const std::vector<Change>& changes = {},
                       const std::string& nameSpace = {}) {
  const auto scene = standalone::Scene::Parse(
      "//Maya ASCII 2024 scene\ncreateNode joint -n \"head\";\n" + rest, "face.ma");
  Findings findings;
  CheckAgainstScene("file", Changed(CleanLbp(), changes), {scene, "face.ma", nameSpace}, findings);
  return findings;
}

const std::string kJaw = "createNode joint -n \"jaw\" -p \"head\";\n";

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
  ExpectCases("scenes", [](const std::string& scene) {
    Findings found = SceneFindings(scene);
    if (!found.empty() && found.back().rule == rule::kNoKeys) found.pop_back();
    return found;
  });
}

TEST(SceneCheck, ChannelsThatShareACauseAreOneFinding) {
  const std::string six =
      "createNode expression -n \"e\";\nconnectAttr \"e.out[0]\" \"jaw.t\";\n"
      "connectAttr \"e.out[1]\" \"jaw.r\";\n";
  EXPECT_EQ(Written(SceneFindings(kJaw + six)),
            "48 channel-driven: \"|head|jaw\" in face.ma gets no keys: all six driven by e "
            "(not a curve over time)\n49 no-keys: 1 of 2 bones get no keys\n");
  EXPECT_EQ(
      Written(SceneFindings(kJaw + "setAttr -l on \".t\";\nsetAttr -l on \".rz\";\ncreateNode "
                                   "expression -n \"e\";\nconnectAttr \"e.out[0]\" \"jaw.rx\";\n")),
      "48 channel-driven: \"|head|jaw\" in face.ma loses keys: rotateX driven by e (not a curve "
      "over time)\n48 channel-locked: \"|head|jaw\" in face.ma loses keys: translateX, "
      "translateY, translateZ and rotateZ locked\n");
}

TEST(SceneCheck, BonesAreFoundInTheirNamespace) {
  std::string scene = "createNode joint -n \"a:head\";\n";
  scene += "createNode joint -n \"a:jaw\" -p \"a:head\";\nrename \"|head\" \"neck\";\n";
  EXPECT_EQ(Written(SceneFindings(scene)),
            "48 bone-missing: none of the 2 bones is in face.ma by its plain name; all are in the "
            "namespace \"a\": give --namespace a\n");
  EXPECT_EQ(Written(SceneFindings(scene, {}, "a")), "");
}

// What is no xyz is still right for joints that turn about one axis, or that an axis makes up for.
TEST(SceneCheck, ARotateOrderThatMakesNoDifferenceIsNone) {
  const std::string aboutX = kMatrix + "1 2 3 1 1 1 -0.6 0.8 0 0";
  std::vector<Change> changes;
  for (std::size_t line = 56; line < 68; ++line)
    changes.push_back({line, {aboutX}});
  for (const char* order : {"1", "2", "3", "4", "5"})
    EXPECT_EQ(Written(SceneFindings(kJaw + "setAttr \".ro\" " + order + ";\n", changes)), "");
  EXPECT_EQ(SceneFindings(kJaw + "setAttr \".ro\" 1;\n").size(), 1U);
}

TEST(SceneCheck, TheNeutralPoseIsHeldAgainstTheScene) {
  const auto at = [](const char* place) {
    return "1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1 " + std::string(place) + " 1 1 1 -1 0 0 0";
  };
  const auto find = [&](const char* jaw, const char* head) {
    return Written(SceneFindings("setAttr \".t\" -type \"double3\" 0 160 0;\n" + kJaw +
                                     "setAttr \".t\" -type \"double3\" 1 -2 3;\n",
                                 {{54, {at(jaw)}}, {55, {at(head)}}}));
  };
  EXPECT_EQ(find("1 -2.01 3", "0 160.001 0"), "");
  EXPECT_EQ(find("0.01 -0.02 0.03", "0 1.6 0"),
            "48 neutral-scale: translations in face.ma are 100 times those of the neutral pose: "
            "metres and centimetres are mixed up\n");
  EXPECT_EQ(find("2.54 -5.08 7.62", "0 406.4 0")
                .find("48 neutral-scale: translations in face.ma "
                      "are 0.3937 times"),
            0U);
  EXPECT_EQ(find("10 20 30", "0 0 -160"),
            "49 neutral-pose: 2 of 2 joints in face.ma stand elsewhere than in the neutral pose, "
            "most of all \"|head\" by 226.274 cm: this may be another rig, or not at rest\n");
  // What drives a joint may put it anywhere.
  const Findings driven = SceneFindings(
      kJaw +
      "setAttr \".tx\" 9;\ncreateNode expression -n \"e\";\nconnectAttr \"e.out\" \"jaw.tx\";\n");
  EXPECT_EQ(driven.size(), 1U) << Written(driven);
  // A scene of poses rests at frame 0, whatever frame it was saved at; a shot need not.
  const std::string curve =
      kJaw +
      "createNode animCurveTL -n \"c\";\nsetAttr -s 2 \".ktv[0:1]\" 0 $ 10 #;\n"
      "connectAttr \"c.o\" \"jaw.tx\";\nselect -ne :time1;\nsetAttr \".o\" 10;\n";
  for (const auto& [first, second, findings] :
       {std::tuple("0", "7", 0U), std::tuple("7", "0", 0U), std::tuple("7", "6", 1U)}) {
    std::string scene = curve;
    scene.replace(scene.find('$'), 1, first).replace(scene.find('#'), 1, second);
    EXPECT_EQ(SceneFindings(scene).size(), findings) << first << " " << second;
  }
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
  ASSERT_EQ(shadowed.size(), 3U) << Written(shadowed);
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
