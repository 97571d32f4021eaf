#include "tests/cli/cli_test.h"

namespace lipvane::test {
namespace {

class MapTest : public CliTest {
 protected:
  std::string lbp_ = folder_.Make("face.lbp", LbpText({"jaw"}, {{{}}}));
};

TEST_F(MapTest, WritesTheTableUnderTheCharactersName) {
  const ProcessResult result = Lipvane({"map", lbp_, "Face"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out + result.err, "");
  const std::string bytes = folder_.Content("Face.map");
  const std::string begin =
      "; Face.map\r\r\n;\r\r\n; LIPSinc Phoneme Mapping File for Face\r\r\n;\r\r\n; Eat \r\r\n"
      "\r\r\n[PhonemeToSpeechTargetMapping]\r\r\nNumSpeechTargets=1\r\r\nP0=0.50\r\r\n";
  EXPECT_EQ(bytes.substr(0, begin.size()), begin);
  EXPECT_EQ(bytes.substr(bytes.rfind("P42")), "P42=0.50\r\r\n");

  EXPECT_EQ(Lipvane({"map", lbp_, "Face", "-o", "other"}).status, 0);
  EXPECT_EQ(folder_.Content("other"), bytes);
  EXPECT_EQ(Lipvane({"map", lbp_, "Face", "-o", "-"}).out, bytes);
}

TEST_F(MapTest, SaysWhatCannotBeMapped) {
  folder_.Make("Face.map", "old");
  const std::string cut = folder_.Make("cut.lbp", "2\n");
  ExpectFailure({"map", cut, "Face"},
                cut + ":1: the file ends where the number of speech targets is expected");
  ExpectFailure({"map", lbp_, "no/Face"}, "no/Face.map: there is no folder no");
  EXPECT_EQ(folder_.Content("Face.map"), "old");
}

}  // namespace
}  // namespace lipvane::test
