// Names and paths that are not ASCII: their bytes come out as they went in, valid UTF-8 or not, and
// JSON is valid all the same.

#include <filesystem>

#include "tests/cli/cli_test.h"

namespace lipvane::test {
namespace {

const std::string kMark = "\xEF\xBB\xBF";
const std::string kJaw =
    "\xC3\xA4\xE5\x8F\xA3\xF0\x9F\x91\x84";  // ä, a mouth in Chinese and as a picture
const std::string kLip = "l\xE4p\xFF";       // an ä in Latin-1, and a byte of no text
const std::string kLipInJson = "l\xEF\xBF\xBDp\xEF\xBF\xBD";

class EncodingTest : public CliTest {
 protected:
  EncodingTest() {
    std::filesystem::create_directory(kFolder);
    folder_.Make(kScene, Content("2"));
  }
  static std::string Content(const std::string& x) {
    return kMark + "//Maya ASCII 2024 scene\nrequires maya \"2024\";\ncreateNode joint -n \"" +
           kJaw + "\";\n\tsetAttr \".tx\" " + x + ";\ncreateNode joint -n \"" + kLip + "\" -p \"" +
           kJaw + "\";\n";
  }
  static const inline std::string kFolder = "\xC3\xBC b\xFFr";
  static const inline std::string kScene = kFolder + "/" + kJaw + ".ma";
};

TEST_F(EncodingTest, BytesOfNamesAndPathsPassThrough) {
  const std::string lbp = kFolder + "/\xFF.lbp";
  const ProcessResult exported = Lipvane(
      {"run", kScene, "-e",
       "demBonesExportPoses -bl \"" + kJaw + "\" -hb \"" + kLip + "\" -np 2 -lbp \"" + lbp + "\"",
       "--report", "-", "-o", kFolder + "/saved.ma"});
  ASSERT_EQ(exported.status, 0) << exported.err;
  EXPECT_EQ(folder_.Content(kFolder + "/saved.ma"), Content("2"));
  EXPECT_TRUE(Has(folder_.Content(lbp), "\n" + kJaw + " -> world\n" + kLip + " -> " + kJaw + "\n"))
      << folder_.Content(lbp);
  EXPECT_TRUE(Has(json::parse(exported.out)["commands"][0]["line"], kLipInJson));

  // The scene is another by then: the keys bring the pose back.
  folder_.Make(kScene, Content("7"));
  const ProcessResult imported =
      Lipvane({"run", kScene, "-e", "facialAnim -import -lbp \"" + lbp + "\"; select " + kLip,
               "--report", "-", "-o", kScene});
  ASSERT_EQ(imported.status, 0) << imported.err;
  const json report = json::parse(imported.out);
  EXPECT_EQ(report["selection"], json({kLipInJson}));
  EXPECT_EQ(report["curves"][0]["node"], "|" + kJaw);
  EXPECT_EQ(report["curves"][0]["keys"][0][1], 2.0);
  EXPECT_EQ(report["curves"].back()["node"], "|" + kJaw + "|" + kLipInJson);
  const std::string saved = folder_.Content(kScene);
  EXPECT_EQ(saved.rfind(kMark + "//Maya", 0), 0U);
  EXPECT_TRUE(Has(saved, "createNode animCurveTL -n \"" + kLip + "_translateX\""));

  EXPECT_EQ(Lipvane({"play", lbp, AnimationOf("a.ltf", "0"), "-o", "a.csv"}).err, "");
  EXPECT_TRUE(Has(folder_.Content("a.csv"), "," + kLip + ".qz\n"));
}

TEST_F(EncodingTest, JsonIsAlwaysValid) {
  const std::string lbp =
      folder_.Make(kFolder + "/\xFF\xFE.lbp", LbpText({kJaw, kLip, "\x80\x01"}, {{{}, {}, {}}}));
  const std::string ltf =
      folder_.Make("\xFF.ltf", "LTF\n1\n0\n1\n{\n\xC0\xAF\xED\xA0\x80\n0\n}\n0\n");
  for (const Arguments& job :
       std::vector<Arguments>{{"inspect", kScene, "--json"},
                              {"inspect", lbp, "--json"},
                              {"inspect", ltf, "--json"},
                              {"check", lbp, ltf, "--scene", kScene, "--json"},
                              {"play", lbp, ltf},
                              {"run", kScene, "-e", "select \xFF\xFE", "--report", "-"}}) {
    const ProcessResult result = Lipvane(job);
    EXPECT_LE(result.status, 1);
    EXPECT_GT(result.out.size(), 50U) << result.err;
    EXPECT_TRUE(json::accept(result.out)) << result.out;
  }
}

}  // namespace
}  // namespace lipvane::test
