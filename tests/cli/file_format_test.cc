#include "cli/file_format.h"

#include <gtest/gtest.h>

namespace lipvane::cli {
namespace {

TEST(FileFormatTest, TellsByContentFirst) {
  EXPECT_EQ(GuessFormat("//Maya ASCII 2024 scene\n", "a.lbp"), FileFormat::kScene);
  EXPECT_EQ(GuessFormat("\xEF\xBB\xBF//Maya ASCII", "a"), FileFormat::kScene);
  EXPECT_EQ(GuessFormat("FOR4\x01\x02Maya", "a"), FileFormat::kScene);
  EXPECT_EQ(GuessFormat("// mine\r\n\r\n\trequires maya \"8.5\";", "a.txt"), FileFormat::kScene);
  EXPECT_EQ(GuessFormat("// Tamsk Entertainment .LBP Version\n2\n", "a.ma"), FileFormat::kLbp);
  EXPECT_EQ(GuessFormat("\n2 // version\n", "a"), FileFormat::kLbp);
  EXPECT_EQ(GuessFormat("// Maya ASCII export\nLTF\n1.0\n", "a.lbp"), FileFormat::kLtf);
  EXPECT_EQ(GuessFormat("LTFX", "a"), FileFormat::kUnknown);
  EXPECT_EQ(GuessFormat("0.0 0.5 AA\n", "a"), FileFormat::kTiming);
  EXPECT_EQ(GuessFormat("File type = \"ooTextFile\"\n", "a.lbp"), FileFormat::kTiming);
}

TEST(FileFormatTest, FallsBackOnTheEnding) {
  EXPECT_EQ(GuessFormat("", "face.MA"), FileFormat::kScene);
  EXPECT_EQ(GuessFormat("// only this", "a.b/face.lbp"), FileFormat::kLbp);
  EXPECT_EQ(GuessFormat("hello", "face.Ltf"), FileFormat::kLtf);
  EXPECT_EQ(GuessFormat("hello", "folder.ma/face"), FileFormat::kUnknown);
  EXPECT_EQ(GuessFormat("", ""), FileFormat::kUnknown);
}

}  // namespace
}  // namespace lipvane::cli
