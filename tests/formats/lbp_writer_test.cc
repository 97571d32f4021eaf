#include <Imath/ImathMatrix.h>
#include <Imath/ImathMatrixAlgo.h>
#include <Imath/ImathQuat.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <sstream>
#include <string>
#include <vector>

#include "lipvane/formats/lbp.h"
#include "tests/support/comma_locale.h"

namespace lipvane {
namespace {

using RowMajor = std::array<double, 16>;

RowMajor Rotation(double angle, const Imath::V3d& axis) {
  Imath::M44d matrix;
  matrix.setAxisAngle(axis, angle);
  RowMajor elements{};
  for (std::size_t i = 0; i < 16; ++i) {
    elements[i] = matrix[static_cast<int>(i / 4)][static_cast<int>(i % 4)];
  }
  return elements;
}

Imath::M44d ToImath(const RowMajor& elements) {
  Imath::M44d matrix;
  for (std::size_t i = 0; i < 16; ++i) {
    matrix[static_cast<int>(i / 4)][static_cast<int>(i % 4)] = elements[i];
  }
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
  const std::vector<RowMajor> rotations = {
      Rotation(0.0, {1, 0, 0}),                // trace above zero
      Rotation(1.2, {1, -2, 3}),               //
      Rotation(nearlyHalfTurn, {3, 1, -0.5}),  // largest on the diagonal: x
      Rotation(nearlyHalfTurn, {0.5, -3, 1}),  // y
      Rotation(nearlyHalfTurn, {-1, 0.5, 3}),  // z
      Rotation(3.141592653589793, {1, 0, 0}),  // no w
      Rotation(3.141592653589793, {0, 1, 1}),  // two equal ones
  };
  for (const RowMajor& rotation : rotations) {
    const auto [w, x, y, z] = QuaternionFromMatrix(rotation);
    const Imath::Quatd expected = Imath::extractQuat(ToImath(rotation));
    // A quaternion and its negative are the same rotation.
    const double sign = w * expected.r + x * expected.v.x + y * expected.v.y + z * expected.v.z;
    EXPECT_NEAR(std::abs(sign), 1.0, 1e-14);
    EXPECT_NEAR(w * w + x * x + y * y + z * z, 1.0, 1e-14);
    const Imath::M44d back = Imath::Quatd(w, x, y, z).toMatrix44();
    EXPECT_TRUE(back.equalWithAbsError(ToImath(rotation), 1e-14));
  }
}

TEST(QuaternionFromMatrix, HasTheSignThatTheMatrixGives) {
  const auto q = QuaternionFromMatrix(Rotation(3.0, {0, 0, -1}));
  EXPECT_GT(q[3], 0.0);  // the largest component is positive, w is not
  EXPECT_LT(q[0], 0.0);
  const auto zero = QuaternionFromMatrix({-1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1});
  for (const double component : zero)
    EXPECT_TRUE(std::isfinite(component));
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

TEST(WriteLbpHeader, WritesTheConstantsOfANewRig) {
  std::ostringstream out;
  ASSERT_TRUE(WriteLbpHeader(out, LbpHeader()));
  const std::string start =
      "// Tamsk Entertainment .LBP Version\n2\n\n// Number of Speech Targets\n15\n\n"
      "// Speech Target Names\n"
      "Eat Earth If Ox Oat Wet Size Church Fave Though Told Bump New Roar Cage\n\n"
      "// Phoneme to Speech Target Mapping\n";
  const std::string rest = DefaultPhonemeTable + std::string("\n\n// Number of Bones\n0\n\n");
  EXPECT_EQ(out.str().substr(0, start.size() + rest.size()), start + rest);
}

TEST(WriteLbpHeader, EndsWithTheBonesOfASceneThatCannotBeWalked) {
  PhonemeMapping mapping;
  LbpHeader header = SmallHeader(mapping);
  header.hierarchyComplete = false;
  header.hierarchy.pop_back();
  std::ostringstream out;
  EXPECT_TRUE(WriteLbpHeader(out, header));
  const std::string end = "// Bone Heirarchy Information\njaw -> head\n";
  EXPECT_EQ(out.str().substr(out.str().size() - end.size()), end);
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

TEST(LbpWriter, FlushesEveryLine) {
  PhonemeMapping mapping;
  const LbpHeader header = SmallHeader(mapping);
  FlushCounter buffer;
  std::ostream out(&buffer);
  ASSERT_TRUE(WriteLbpHeader(out, header));
  EXPECT_EQ(buffer.flushes, 25);
  WritePoseBoneLines(out, std::vector<LbpBone>(3));
  EXPECT_EQ(buffer.flushes, 28);
}

TEST(LbpWriter, WritesWhatTheReaderReads) {
  LbpHeader header;
  header.boneCount = 2;
  header.hierarchy = {{"jaw", "head"}, {"head", "world"}};
  LbpBone bone;
  bone.matrix = Rotation(1.0, {0, 0, 1});
  bone.translation = {0.25, -0.5, 3.0};
  std::ostringstream out;
  ASSERT_TRUE(WriteLbpHeader(out, header));
  WriteLbpPoseCount(out, 2);
  for (const int pose : {0, 1}) {
    WriteLbpPoseLabel(out, pose, "Name // with a comment");
    WritePoseBoneLines(out, {LbpBone(), bone});
    WriteLbpBlankLine(out);
  }

  TBonePoseInfo poseInfo;
  PhonemeMapping mapping;
  ReadProblem problem;
  ASSERT_TRUE(ReadLbpText(out.str(), poseInfo, mapping, problem)) << problem.reason;
  EXPECT_EQ(mapping.SpeechTargetCount(), 15);
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
