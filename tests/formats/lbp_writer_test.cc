#include <Imath/ImathMatrix.h>
#include <Imath/ImathQuat.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <sstream>
#include <string>

#include "lipvane/formats/lbp.h"
#include "tests/support/comma_locale.h"

namespace lipvane {
namespace {

using RowMajor = std::array<double, 16>;

RowMajor Rotation(double angle, const Imath::V3d& axis) {
  Imath::M44d matrix;
  matrix.setAxisAngle(axis, angle);
  RowMajor elements{};
  std::copy_n(matrix.getValue(), elements.size(), elements.begin());
  return elements;
}

/// A stream that counts how often it was told to let its bytes go.
class FlushCounter : public std::stringbuf {
 public:
  int flushes = 0;

 private:
  int sync() override { return ++flushes, std::stringbuf::sync(); }
};

TEST(QuaternionFromMatrix, TurnsLikeTheMatrixInEveryBranch) {
  constexpr double kNearlyHalfTurn = 3.0;
  for (const RowMajor& rotation :
       {Rotation(0.0, {1, 0, 0}),                                            // trace above zero
        Rotation(1.2, {1, -2, 3}), Rotation(kNearlyHalfTurn, {3, 1, -0.5}),  // x is the largest
        Rotation(kNearlyHalfTurn, {0.5, -3, 1}),                             // y
        Rotation(kNearlyHalfTurn, {-1, 0.5, 3}),                             // z
        Rotation(3.141592653589793, {1, 0, 0})}) {                           // no w
    const auto [w, x, y, z] = QuaternionFromMatrix(rotation);
    EXPECT_GT(std::max({w, x, y, z}), 0.5) << "the largest component is positive";
    const Imath::M44d back = Imath::Quatd(w, x, y, z).toMatrix44();
    for (std::size_t i = 0; i < 16; ++i) {
      EXPECT_NEAR(back.getValue()[i], rotation[i], 1e-14);
    }
  }
}

TEST(WriteLbpHeader, WritesAMappingByteForByte) {
  PhonemeMapping mapping;
  mapping.speechTargets = {"Eat", "Ox"};
  mapping.AddPhoneme("Iy", {0.85F, -1e-7F});
  mapping.AddPhoneme("Sil", {});
  LbpHeader header;
  header.mapping = &mapping;
  header.boneCount = 12345;
  header.hierarchy = {{"jaw", "head"}, {"head", "world"}};
  header.headBoneName = "head";
  const test::CommaLocale comma;
  FlushCounter buffer;
  std::ostream out(&buffer);
  ASSERT_TRUE(WriteLbpHeader(out, header));
  WriteLbpPoseCount(out, 1000);
  WriteLbpPoseLabel(out, 0, "Neutral");
  WriteLbpBlankLine(out);
  WriteLbpPoseLabel(out, 1000, "");
  EXPECT_EQ(buffer.str(),
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
  const std::string written = buffer.str();
  EXPECT_EQ(buffer.flushes, std::count(written.begin(), written.end(), '\n')) << "one a line";
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

}  // namespace
}  // namespace lipvane
