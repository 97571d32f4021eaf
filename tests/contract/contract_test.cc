// What both commands do in any host: the same suite for each, so that the hosts agree.

#include <Imath/ImathEuler.h>
#include <Imath/ImathMatrix.h>
#include <Imath/ImathMatrixAlgo.h>
#include <Imath/ImathQuat.h>
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <iterator>
#include <sstream>

#include "tests/contract/contract.h"

namespace lipvane::test {
namespace {

constexpr double kRadians = 3.14159265358979323846 / 180.0;

Imath::M44d Rotation(const Triple& degrees) {
  return Imath::Eulerd(degrees[0] * kRadians, degrees[1] * kRadians, degrees[2] * kRadians,
                       Imath::Eulerd::XYZ)
      .toMatrix44();
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);)
    lines.push_back(line);
  return lines;
}

std::vector<double> NumbersOf(const std::string& line) {
  std::istringstream in(line);
  return {std::istream_iterator<double>(in), std::istream_iterator<double>()};
}

/// The pose header lines of a file, in order.
std::vector<std::string> PoseLabels(const std::string& fileName) {
  std::vector<std::string> labels;
  for (const std::string& line : Lines(FileContent(fileName))) {
    if (line.rfind("// Bone Pose ", 0) == 0) labels.push_back(line);
  }
  return labels;
}

const Shown kBonesNotFound = {
    "warning", "Bone(s) in the LBP file were not found.  Make sure your LBP file is correct.\n",
    ""};

/// A head with a jaw that moves at frames 0, 10 and 20, a lip below it and a skin that is no joint.
SceneDescription Face() {
  NodeDescription rig, head, jaw, lip, skin;
  rig.type = "transform";
  rig.path = "|rig";
  head.path = "|rig|head";
  head.stand.translate = {0, 150, 0};
  head.orient = {10, 20, 30};
  jaw.path = "|rig|head|jaw";
  jaw.orient = {0, 40, -70};
  jaw.frames[0] = {{1, 2, 3}, {0, 0, 0}};
  jaw.frames[10] = {{1, -2.5, 3}, {30, -15, 5}};
  jaw.frames[20] = {{1, 2, 1000000.0 / 3.0}, {-100, 60, 170}};
  lip.path = "|rig|head|jaw|lip";
  lip.stand.translate = {0.5, 0, 0};
  skin.type = "mesh";
  skin.path = "|rig|head|skin";
  return {rig, head, jaw, lip, skin};
}

TEST_P(Contract, ExportWritesSkeletonAndPosesAndGoesBackToFrameZero) {
  const auto host = Make(Face());
  const std::string file = FileOf("face.lbp");
  ASSERT_TRUE(host->Run("demBonesExportPoses", {"-bones", "jaw  lip", "-headbone", "head",
                                                "-lbpfile", file, "-numposes", "3"}));
  EXPECT_EQ(host->CurrentTime(), 0.0);
  EXPECT_TRUE(host->AllShown().empty());

  const std::vector<std::string> lines = Lines(FileContent(file));
  const std::size_t bones = 54;  // after 43 rows
  ASSERT_EQ(lines.size(), 85u);
  EXPECT_EQ(lines[0], "// Tamsk Entertainment .LBP Version");
  EXPECT_EQ(lines[7], "Eat Earth If Ox Oat Wet Size Church Fave Though Told Bump New Roar Cage");
  const std::vector<std::string> skeleton(lines.begin() + bones, lines.begin() + bones + 16);
  EXPECT_EQ(skeleton,
            (std::vector<std::string>{
                "// Number of Bones", "3", "", "// Bone Heirarchy Information", "jaw -> head",
                "lip -> jaw", "head -> rig", "", "// Individual Bone Assignments", "head_bone=head",
                "left_eye_bone=undefined", "right_eye_bone=undefined", "",
                "// Number of Bone Poses", "3", ""}));
  EXPECT_EQ(PoseLabels(file),
            (std::vector<std::string>{"// Bone Pose 0: Neutral", "// Bone Pose 1: Eat",
                                      "// Bone Pose 2: Earth"}));
  // The lip does not move, and stands as its one value says, digit for digit.
  EXPECT_EQ(lines[72], "1 0 0 0 0 1 0 0 0 0 1 0 0.5 0 0 1 0.5 0 0 1 1 1 -1 0 0 0");
  EXPECT_EQ(lines[72], lines[77]);

  const SceneDescription face = Face();
  for (std::size_t pose = 0; pose < 3; ++pose) {
    const Stand& stand = face[2].frames.at(static_cast<int>(10 * pose));
    Imath::M44d local = Rotation(stand.rotate) * Rotation(face[2].orient);
    const Imath::Quatd quaternion = Imath::extractQuat(local);
    local[3][0] = stand.translate[0];
    local[3][1] = stand.translate[1];
    local[3][2] = stand.translate[2];
    const std::vector<double> numbers = NumbersOf(lines[71 + 5 * pose]);
    ASSERT_EQ(numbers.size(), 26u) << pose;
    for (int i = 0; i < 16; ++i) {
      const double expected = local[i / 4][i % 4];
      EXPECT_NEAR(numbers[static_cast<std::size_t>(i)], expected, 1e-5 * (1 + std::abs(expected)));
    }
    const double sign = numbers[22] * -quaternion.r < 0 ? -1 : 1;
    EXPECT_NEAR(numbers[22], -quaternion.r * sign, 1e-5) << pose;
    EXPECT_NEAR(numbers[23], quaternion.v.x * sign, 1e-5) << pose;
    EXPECT_NEAR(numbers[24], quaternion.v.y * sign, 1e-5) << pose;
    EXPECT_NEAR(numbers[25], quaternion.v.z * sign, 1e-5) << pose;
  }
  EXPECT_NE(lines[81].find("333333"), std::string::npos);  // six significant digits
}

TEST_P(Contract, ExportLabelsEndWithTheNamesThereAre) {
  const auto host = Make(Face());
  const std::string plain = FileOf("plain.lbp");
  ASSERT_TRUE(
      host->Run("demBonesExportPoses", {"-bl", "jaw", "-hb", "head", "-lbp", plain, "-np", "22"}));
  auto labels = PoseLabels(plain);
  ASSERT_EQ(labels.size(), 22u);
  using Labels = std::vector<std::string>;
  EXPECT_EQ(Labels(labels.begin() + 15, labels.end()),
            (Labels{"// Bone Pose 15: Cage", "// Bone Pose 16: Eyebrow_Up_Left",
                    "// Bone Pose 17: Eyebrow_Up_Right", "// Bone Pose 18: Blink_Left",
                    "// Bone Pose 19: Blink_Right", "// Bone Pose 20: ", "// Bone Pose 21: "}));

  const std::string mapped = FileOf("mapped.lbp");
  ASSERT_TRUE(host->Run("demBonesExportPoses",
                        {"-bl", "jaw", "-hb", "head", "-lbp", mapped, "-np", "21", "-map", plain}));
  labels = PoseLabels(mapped);
  ASSERT_EQ(labels.size(), 21u);
  EXPECT_EQ(labels[0], "// Bone Pose 0: Neutral");
  EXPECT_EQ(Labels(labels.begin() + 15, labels.end()),
            (Labels{"// Bone Pose 15: Cage", "// Bone Pose 16: Eyebrow_Raise_Left",
                    "// Bone Pose 17: Eyebrow_Raise_Right", "// Bone Pose 18: Blink_Left",
                    "// Bone Pose 19: Blink_Right", "// Bone Pose 20: "}));
  // The mapping's weights are numbers now, no longer the built-in text.
  EXPECT_EQ(Lines(FileContent(plain))[10].substr(0, 12), "Iy 0.85 0.00");
  EXPECT_EQ(Lines(FileContent(mapped))[10].substr(0, 12), "Iy 0.85 0 0 ");
}

TEST_P(Contract, ExportSaysWhatIsWrongWithTheMapping) {
  const auto host = Make(Face());
  const std::string file = FileOf("face.lbp");
  std::ofstream(FileOf("bad.lbp")) << "3\n";
  EXPECT_FALSE(host->Run("demBonesExportPoses", {"-lbp", file, "-map", ""}));
  EXPECT_FALSE(host->Run("demBonesExportPoses", {"-lbp", file, "-map", FileOf("bad.lbp")}));
  EXPECT_FALSE(host->Run("demBonesExportPoses", {"-lbp", file, "-map", FileOf("missing.lbp")}));
  const Shown parse = {"box", "Could not parse selected LBP file for mapping informaion.",
                       "Application Error"};
  EXPECT_EQ(host->AllShown(),
            (std::vector<Shown>{{"box", "Must select a valid LBP file for mapping informaion.",
                                 "Application Error"},
                                parse,
                                parse}));
  EXPECT_FALSE(std::ifstream(file).good());
  EXPECT_EQ(host->CurrentTime(), 1.0);
}

TEST_P(Contract, ExportToAFolderThatIsNotThereFailsInSilence) {
  const auto host = Make(Face());
  EXPECT_FALSE(host->Run("demBonesExportPoses", {"-hb", "head", "-lbp", FileOf("no/face.lbp")}));
  EXPECT_TRUE(host->AllShown().empty());
  EXPECT_EQ(host->CurrentTime(), 1.0);
}

TEST_P(Contract, ExportWritesALineForEveryNodeOfAName) {
  SceneDescription scene = Face();
  NodeDescription other = scene[2];
  other.path = "|jaw";
  other.frames.clear();
  scene.push_back(other);
  const auto host = Make(scene);
  const std::string file = FileOf("face.lbp");
  ASSERT_TRUE(host->Run("demBonesExportPoses",
                        {"-bl", "jaw nobody", "-hb", "head", "-lbp", file, "-np", "0"}));
  const std::vector<std::string> lines = Lines(FileContent(file));
  EXPECT_EQ(lines[55], "3");
  EXPECT_EQ((std::vector<std::string>(lines.begin() + 58, lines.begin() + 62)),
            (std::vector<std::string>{"jaw -> head", "jaw -> world", "head -> rig", ""}));
  EXPECT_EQ(host->CurrentTime(), 0.0);
}

TEST_P(Contract, TheWorldHasNoTransformToExport) {
  const auto host = Make(Face());
  const std::string file = FileOf("face.lbp");
  EXPECT_TRUE(
      host->Run("demBonesExportPoses", {"-bl", "world", "-hb", "lip", "-lbp", file, "-np", "1"}));
  ASSERT_EQ(host->AllShown().size(), 1u);
  EXPECT_EQ(host->AllShown()[0].kind, "diagnostic");
  EXPECT_EQ(host->AllShown()[0].label, "MFnDagNode constructor");
  const std::vector<std::string> lines = Lines(FileContent(file));
  EXPECT_EQ(lines[58], "world -> ");
  EXPECT_EQ(lines[70], "1 0 0 0 0 1 0 0 0 0 1 0 0.5 0 0 1 0.5 0 0 1 1 1 -1 0 0 0");
  EXPECT_EQ(lines.size(), 72u);
}

TEST_P(Contract, TheHiddenMessageNeedsTheExactName) {
  const auto host = Make(Face());
  const std::string file = FileOf("face.lbp");
  EXPECT_TRUE(
      host->Run("demBonesExportPoses", {"-hb", "SkullSkullskullHollowSkulls", "-lbp", file}));
  EXPECT_TRUE(host->AllShown().empty());
  EXPECT_TRUE(
      host->Run("demBonesExportPoses", {"-hb", "skullSkullskullHollowSkulls", "-lbp", file}));
  EXPECT_EQ(host->AllShown(),
            (std::vector<Shown>{
                {"box",
                 "If you like traffic...  Wednesday, 19 December 2001 Orrin Vale\nToasty!\nQuick "
                 "question for you... what's on my pants?! ;-)",
                 "All your bones are belong to us..."}}));
  EXPECT_FALSE(FileContent(file).empty());
}

TEST_P(Contract, ImportKeysEveryPoseTenFramesApart) {
  const auto host = Make(Face());
  std::vector<std::vector<BoneLine>> poses;
  for (const Triple& degrees : {Triple{0, 0, 0}, Triple{30, -15, 5}, Triple{-100, 60, 170}}) {
    // A joint's rotation and orientation as the export writes it, w negated.
    const Imath::Quatd q = Imath::extractQuat(Rotation(degrees) * Rotation(Face()[2].orient));
    poses.push_back(
        {{{1, 2, degrees[0]}, {-q.r, q.v.x, q.v.y, q.v.z}}, {{7, 8, 9}, {-1, 0, 0, 0}}});
  }
  const std::string file = WriteLbp({"jaw", "lip"}, poses);
  ASSERT_TRUE(host->Run("facialAnim", {"-import", "-lbpfile", file}));
  EXPECT_TRUE(host->AllShown().empty());
  EXPECT_EQ(host->CurrentTime(), 20.0);

  const auto curves = host->Curves();
  ASSERT_EQ(curves.size(), 18u);
  for (const char axis : {'X', 'Y', 'Z'}) {
    EXPECT_TRUE(curves.at(std::string("|rig|head|jaw.scale") + axis).empty());
  }
  int frame = 0;
  for (const Triple& degrees : {Triple{0, 0, 0}, Triple{30, -15, 5}, Triple{-100, 60, 170}}) {
    Triple angles;
    for (std::size_t axis = 0; axis < 3; ++axis) {
      const std::string channel = std::string("|rig|head|jaw.rotate") + "XYZ"[axis];
      ASSERT_EQ(curves.at(channel).size(), 3u) << channel;
      angles[axis] = curves.at(channel).at(frame) / kRadians;
    }
    EXPECT_TRUE(Rotation(angles).equalWithAbsError(Rotation(degrees), 1e-6)) << frame;
    EXPECT_EQ(curves.at("|rig|head|jaw.translateZ").at(frame), degrees[0]);
    EXPECT_EQ(curves.at("|rig|head|jaw|lip.translateX").at(frame), 7.0);
    frame += 10;
  }
}

TEST_P(Contract, ImportGoesOnWithoutAMissingBone) {
  const auto host = Make(Face());
  const std::string file = WriteLbp({"nobody", "lip", "Jaw"}, {{{}, {}, {}}});
  EXPECT_TRUE(host->Run("facialAnim", {"-imp", "-lbp", file}));
  EXPECT_EQ(host->AllShown(), std::vector<Shown>{kBonesNotFound});
  EXPECT_EQ(host->Curves().at("|rig|head|jaw|lip.rotateX").size(), 1u);
  EXPECT_EQ(host->Curves().count("|rig|head|jaw.scaleX"), 0u);
}

TEST_P(Contract, ImportMakesCurvesOnEveryMatchAndKeysTheLast) {
  SceneDescription scene = Face();
  NodeDescription twin;
  twin.path = "|twin";
  scene.push_back(twin);
  twin.path = "|twin|lip";
  scene.push_back(twin);
  const auto host = Make(scene);
  EXPECT_TRUE(host->Run("facialAnim", {"-imp", "-lbp", WriteLbp({"lip"}, {{{}}})}));
  const auto curves = host->Curves();
  EXPECT_TRUE(curves.at("|rig|head|jaw|lip.translateX").empty());
  EXPECT_EQ(curves.at("|twin|lip.translateX").size(), 1u);
}

TEST_P(Contract, KeysThatAreLostAreOneLineAJointAndACount) {
  SceneDescription scene = Face();
  NodeDescription twin;  // met after the free lip: no key may go to that one either
  twin.path = "|rig|lip";
  twin.drivers["rotateX"] = "mixer";
  twin.drivers["scaleX"] = "size";  // which no key is meant for
  scene.push_back(twin);
  NodeDescription brow;
  brow.path = "|rig|brow";
  for (const char* axis : {"X", "Y", "Z"})
    brow.drivers[std::string("translate") + axis] = brow.drivers[std::string("rotate") + axis] =
        "aim";
  scene.push_back(brow);
  const auto host = Make(scene);
  const std::string file = WriteLbp({"lip", "brow", "jaw"}, {{{}, {}, {}}, {{}, {}, {}}});
  EXPECT_TRUE(host->Run("facialAnim", {"-sel", "-lbp", file}));
  EXPECT_TRUE(host->AllShown().empty());  // curves alone lose nothing
  EXPECT_TRUE(host->Run("facialAnim", {"-imp", "-lbp", file}));
  EXPECT_EQ(
      host->AllShown(),
      (std::vector<Shown>{
          {"warning", "|rig|lip loses keys: rotateX driven by mixer (not a curve over time)", ""},
          {"warning", "|rig|brow gets no keys: all six driven by aim (not a curve over time)", ""},
          {"warning", "1 of 3 bones get no keys", ""}}));
  const auto curves = host->Curves();
  EXPECT_EQ(curves.count("|rig|lip.rotateX"), 0u);
  EXPECT_EQ(curves.at("|rig|lip.rotateY").size(), 2u);
  EXPECT_TRUE(curves.at("|rig|head|jaw|lip.rotateX").empty());
}

TEST_P(Contract, ACurveBehindCharacterSetsIsKeyed) {
  SceneDescription scene = Face();
  scene[2].between = {{"translateX", {"character"}},
                      {"rotateZ", {"character", "character"}},
                      {"translateY", {"unitConversion"}},
                      {"translateZ", {"character", "unitConversion"}}};
  const auto host = Make(scene);
  EXPECT_TRUE(host->Run("facialAnim", {"-imp", "-lbp", WriteLbp({"jaw"}, {{{{7, 8, 9}}}})}));
  const auto curves = host->Curves();
  EXPECT_EQ(curves.at("|rig|head|jaw.translateX").at(0), 7.0);
  EXPECT_NE(curves.at("|rig|head|jaw.rotateZ").at(0), 0.0);
  if (host->KeysThroughConversions()) {
    EXPECT_EQ(curves.at("|rig|head|jaw.translateY").at(0), 8.0);
    EXPECT_EQ(curves.at("|rig|head|jaw.translateZ").at(0), 9.0);
  } else {  // they stand as they were
    EXPECT_EQ(curves.at("|rig|head|jaw.translateY").at(0), 2.0);
    EXPECT_EQ(curves.at("|rig|head|jaw.translateZ").at(0), 3.0);
  }
}

TEST_P(Contract, OnlyJointsAreKeyed) {
  const auto host = Make(Face());
  EXPECT_TRUE(host->Run("facialAnim", {"-imp", "-lbp", WriteLbp({"rig", "skin"}, {{{}, {}}})}));
  EXPECT_TRUE(host->AllShown().empty());  // both names are in the scene
  const auto curves = host->Curves();
  EXPECT_TRUE(curves.at("|rig.translateX").empty());
  EXPECT_EQ(curves.count("|rig|head|skin.translateX"), 0u);
}

TEST_P(Contract, AFileWithoutPosesMakesCurvesOnly) {
  const auto host = Make(Face());
  EXPECT_TRUE(host->Run("facialAnim", {"-imp", "-lbp", WriteLbp({"lip"}, {})}));
  EXPECT_EQ(host->CurrentTime(), 1.0);
  EXPECT_TRUE(host->Curves().at("|rig|head|jaw|lip.rotateZ").empty());
}

TEST_P(Contract, AnUnreadableFileIsNamed) {
  const auto host = Make(Face());
  const std::string missing = FileOf("missing.lbp");
  // The import's failure shows in its message alone, the selection's in its status too.
  EXPECT_TRUE(host->Run("facialAnim", {"-import", "-select", "-lbp", missing}));
  EXPECT_FALSE(host->Run("facialAnim", {"-select", "-lbp", missing}));
  EXPECT_FALSE(host->Run("facialAnim", {"-select", "-ltf", missing}));
  EXPECT_EQ(host->AllShown(),
            (std::vector<Shown>{{"error", "cannot parse selected LBP file: " + missing, ""},
                                {"error", "cannot parse selected LBP file: " + missing, ""},
                                {"error", "cannot parse selected LBP file: ", ""}}));
  EXPECT_EQ(host->CurrentTime(), 1.0);
}

TEST_P(Contract, SelectRestsOnTheLastBone) {
  const auto host = Make(Face());
  EXPECT_TRUE(host->Run("facialAnim", {"-select", "-morph", "-lbp", WriteLbp({"jaw", "lip"}, {})}));
  EXPECT_EQ(host->Selection(), (std::vector<std::string>{"|rig|head|jaw", "|rig|head|jaw|lip"}));
  EXPECT_TRUE(host->Curves().at("|rig|head|jaw|lip.rotateZ").empty());  // made here too
  // An earlier bone that is missing does not matter ...
  EXPECT_TRUE(host->Run("facialAnim", {"-sel", "-lbp", WriteLbp({"nobody", "head"}, {})}));
  EXPECT_EQ(host->Selection().size(), 3u);
  // ... a last one that is selected already, or missing, clears everything.
  EXPECT_TRUE(host->Run("facialAnim", {"-sel", "-lbp", WriteLbp({"rig", "head"}, {})}));
  EXPECT_TRUE(host->Selection().empty());
  EXPECT_TRUE(host->Run("facialAnim", {"-sel", "-lbp", WriteLbp({"head", "nobody"}, {})}));
  EXPECT_TRUE(host->Selection().empty());
  EXPECT_EQ(host->AllShown(), (std::vector<Shown>{kBonesNotFound, kBonesNotFound}));
}

TEST_P(Contract, AWordThatHasNoPlaceHindersNone) {
  const auto host = Make(Face());
  const std::string file = FileOf("face.lbp");
  const struct {
    std::vector<std::string> words;
    std::size_t poses;
  } lines[] = {{{"-np", "2.9"}, 2},
               {{"-np", "abc"}, 0},
               {{"-np", "99999999999"}, 0},
               {{"-np", "1", "-np", "2"}, 1},
               {{"stray", "-5", "-np", "1"}, 1},
               {{"-np"}, 0},
               {{"-np", "-bl", "jaw"}, 0},
               {{"-np", "1", "-lbp", "no/file"}, 1}};
  for (const auto& line : lines) {
    std::vector<std::string> words = {"-hb", "head", "-lbp", file};
    words.insert(words.end(), line.words.begin(), line.words.end());
    EXPECT_TRUE(host->Run("demBonesExportPoses", words)) << words.back();
    EXPECT_EQ(PoseLabels(file).size(), line.poses) << words.back();
  }
  // A value that reads as a flag is the value.
  EXPECT_TRUE(host->Run("facialAnim", {"-exp", "A", "-expression", "-exp", "-import", "stray",
                                       "-lbp", WriteLbp({"lip"}, {{{}}}), "-exp"}));
  EXPECT_TRUE(host->AllShown().empty());
  EXPECT_EQ(host->Curves().at("|rig|head|jaw|lip.rotateX").size(), 1u);
}

TEST_P(Contract, OtherFlagsAreAcceptedAndDoNothing) {
  const auto host = Make(Face());
  EXPECT_TRUE(host->Run("facialAnim", {}));
  EXPECT_TRUE(host->Run("facialAnim", {"-morph", "-exp", "Blink_Left", "-expression", "-exp",
                                       "-ltffile", "missing.ltf", "-lbp", "missing.lbp"}));
  EXPECT_TRUE(host->AllShown().empty());
  EXPECT_EQ(host->CurrentTime(), 1.0);
}

}  // namespace
}  // namespace lipvane::test
