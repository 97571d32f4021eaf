#include <Imath/ImathMatrix.h>
#include <Imath/ImathMatrixAlgo.h>
#include <Imath/ImathQuat.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <sstream>
#include <string>
#include <vector>

#include "lipvane/formats/lbp.h"
#include "tests/support/comma_locale.h"

namespace lipvane {
namespace {

using RowMajor = std::array<double, 16>;

RowMajor RowByRow(const Imath::M44d& matrix) {
  RowMajor elements{};
  std::copy_n(matrix.getValue(), elements.size(), elements.begin());
  return elements;
}

Imath::M44d Rotation(double angle, const Imath::V3d& axis) {
  Imath::M44d matrix;
  matrix.setAxisAngle(axis, angle);
  return matrix;
}

/// A stream that counts how often it was told to let its bytes go.
class FlushCounter : public std::stringbuf {
 public:
  int flushes = 0;

 private:
  int sync() override { return ++flushes, std::stringbuf::sync(); }
};

LbpHeader SmallHeader(PhonemeMapping& mapping) {
  mapping.AddSpeechTarget("Eat");
  mapping.AddSpeechTarget("Ox");
  mapping.AddPhoneme("Iy", {0.85F, -1e-7F});
  mapping.AddPhoneme("Sil", {});
  LbpHeader header;
  header.mapping = &mapping;
  header.boneCount = 12345;
  header.hierarchy = {{"jaw", "head"}, {"head", "world"}};
  header.headBoneName = "head";
  return header;
}

TEST(QuaternionFromMatrix, AgreesWithAnIndependentOneInEveryBranch) {
  const double nearlyHalfTurn = 3.0;
  const std::vector<Imath::M44d> rotations = {
      Rotation(0.0, {1, 0, 0}),                // trace above zero
      Rotation(1.2, {1, -2, 3}),               //
      Rotation(nearlyHalfTurn, {3, 1, -0.5}),  // largest on the diagonal: x
      Rotation(nearlyHalfTurn, {0.5, -3, 1}),  // y
      Rotation(nearlyHalfTurn, {-1, 0.5, 3}),  // z
      Rotation(3.141592653589793, {1, 0, 0}),  // no w
  };
  for (const Imath::M44d& rotation : rotations) {
    const auto [w, x, y, z] = QuaternionFromMatrix(RowByRow(rotation));
    const Imath::Quatd expected = Imath::extractQuat(rotation);
    EXPECT_NEAR(w, expected.r, 1e-14);
    EXPECT_TRUE(expected.v.equalWithAbsError({x, y, z}, 1e-14));
    const Imath::M44d back = Imath::Quatd(w, x, y, z).toMatrix44();
    EXPECT_TRUE(back.equalWithAbsError(rotation, 1e-14));
  }
}

TEST(WriteLbpHeader, WritesAMappingByteForByte) {
  PhonemeMapping mapping;
  const LbpHeader header = SmallHeader(mapping);
  const test::CommaLocale comma;
  std::ostringstream out;
  ASSERT_TRUE(WriteLbpHeader(out, header));
  WriteLbpPoseCount(out, 1000);
  WriteLbpPoseLabel(out, 0, "Neutral");
  WriteLbpBlankLine(out);
  WriteLbpPoseLabel(out, 1000, "");
  EXPECT_EQ(out.str(),
            "// Tamsk Entertainment .LBP Version\n2\n\n"
            "// Number of Speech Targets\n2\n\n"
            "// Speech Target Names\nEat Ox\n\n"
            "// Phoneme to Speech Target Mapping\nIy 0.85 -1e-07\nSil 0 0\n\n"
            "// Number of Bones\n12345\n\n"
            "// Bone Heirarchy Information\njaw -> head\nhead -> world\n\n"
            "// Individual Bone Assignments\nhead_bone=head\nleft_eye_bone=undefined\n"
            "right_eye_bone=undefined\n\n"
            "// Number of Bone Poses\n1000\n\n"
            "// Bone Pose 0: Neutral\n\n"
            "// Bone Pose 1000: \n");
}

TEST(WriteLbpHeader, EndsWithTheBonesOfASceneThatCannotBeWalked) {
  PhonemeMapping mapping;
  LbpHeader header = SmallHeader(mapping);
  header.hierarchyComplete = false;
  header.hierarchy.pop_back();
  FlushCounter buffer;
  std::ostream out(&buffer);
  EXPECT_TRUE(WriteLbpHeader(out, header));
  const std::string end = "// Bone Heirarchy Information\njaw -> head\n";
  EXPECT_EQ(buffer.str().substr(buffer.str().size() - end.size()), end);
  EXPECT_EQ(buffer.flushes, 18);  // one a line
}

TEST(WritePoseBoneLines, WritesByteForByte) {
  LbpBone turned;
  turned.matrix = {0, 2, 0, 0, -2, 0, 0, 0, 0, 0, 2, 0, 0.1, 20, 1234567, 1};
  turned.translation = {0.1, 20.0, 1234567.0};
  turned.scale = {2.0, 2.0, 1e-7};
  LbpBone half;  // about z, where w is 0
  half.matrix = {-1, 0, 0, 0, 0, -1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
  const test::CommaLocale comma;
  std::ostringstream out;
  WritePoseBoneLines(out, {LbpBone(), turned, half});
  EXPECT_EQ(out.str(),
            "1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1 0 0 0 1 1 1 -1 0 0 0\n"
            "0 2 0 0 -2 0 0 0 0 0 2 0 0.1 20 1.23457e+06 1 0.1 20 1.23457e+06 2 2 1e-07 "
            "-0.866025 0 0 1.1547\n"
            "-1 0 0 0 0 -1 0 0 0 0 1 0 0 0 0 1 0 0 0 1 1 1 -0 0 0 1\n");
}

TEST(LbpWriter, WritesWhatTheReaderReads) {
  LbpHeader header;
  header.boneCount = 2;
  header.hierarchy = {{"jaw", "head"}, {"head", "world"}};
  LbpBone bone;
  bone.matrix = RowByRow(Rotation(1.0, {0, 0, 1}));
  bone.translation = {0.25, -0.5, 3.0};
  std::ostringstream out;
  ASSERT_TRUE(WriteLbpHeader(out, header));
  WriteLbpPoseCount(out, 2);
  for (const int pose : {0, 1}) {
    WriteLbpPoseLabel(out, pose, "Name // with a comment");
    WritePoseBoneLines(out, {LbpBone(), bone});
    WriteLbpBlankLine(out);
  }

  EXPECT_NE(
      out.str().find("\n15\n\n// Speech Target Names\nEat Earth If Ox Oat Wet Size Church Fave "
                     "Though Told Bump New Roar Cage\n\n"),
      std::string::npos);
  EXPECT_NE(out.str().find(std::string("Mapping\n") + DefaultPhonemeTable + "\n\n// Number"),
            std::string::npos);

  TBonePoseInfo poseInfo;
  PhonemeMapping mapping;
  ReadProblem problem;
  ASSERT_TRUE(ReadLbpText(out.str(), poseInfo, mapping, problem)) << problem.reason;
  EXPECT_EQ(mapping.PhonemeCount(), kPhonemeCount);
  EXPECT_EQ(mapping.weights[0][0], 0.85F);
  EXPECT_EQ(poseInfo.boneNames, (std::vector<std::string>{"jaw", "head"}));
  ASSERT_EQ(poseInfo.poses.size(), 2U);
  EXPECT_EQ(poseInfo.GetPose(1).GetBone(0).rotation, Quaternion(-1.0F, 0.0F, 0.0F, 0.0F));
  const TIndexedBone& read = poseInfo.GetPose(1).GetBone(1);
  EXPECT_EQ(read.translation, Vector3(0.25F, -0.5F, 3.0F));
  EXPECT_NEAR(read.rotation.w, -std::cos(0.5), 1e-6);
  EXPECT_NEAR(read.rotation.z, std::sin(0.5), 1e-6);
}

}  // namespace
}  // namespace lipvane
