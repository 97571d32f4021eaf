#include <cmath>
#include <random>

#include "tests/cli/cli_test.h"

namespace lipvane::test {
namespace {

class BakeResultsTest : public CliTest {
 protected:
  ProcessResult Bake(const std::string& out, const Arguments& more = {}) const {
    return Lipvane({"bake", scene_, lbp_, ltf_, "-o", folder_.Path(out)}, more);
  }
  /// The scene that `bake` saves, and the one with its script run on it.
  void ExpectTheSame(const Arguments& more) const {
    ASSERT_EQ(Bake("line.ma", more).status, 0);
    ASSERT_EQ(Bake("line.mel", more).status, 0);
    const ProcessResult run =
        Lipvane({"run", scene_, "-f", folder_.Path("line.mel"), "-o", folder_.Path("run.ma")});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_TRUE(folder_.Content("line.ma") == folder_.Content("run.ma"));
  }
  std::string Wav() const {
    // 16 bits, 8000 a second, half a second.
    return folder_.Make(
        "line 1.wav",
        std::string("RIFF\x64\x1f\0\0WAVEfmt \x10\0\0\0\1\0\1\0\x40\x1f\0\0\x80\x3e\0\0\2\0\x10\0"
                    "data\x40\x1f\0\0",
                    44) +
            std::string(8000, 'x'));
  }

  std::string scene_ = folder_.Make(
      "face.ma", std::string(kFaceScene) +
                     "createNode script -n \"sceneConfigurationScriptNode\";\n"
                     "\tsetAttr \".b\" -type \"string\" \"playbackOptions -min -9 -max 999\";\n");
  std::string lbp_ = folder_.Make("face.lbp", LbpText({"lip", "jaw"}, {{{}, {}}, {{}, {}}}));
  std::string ltf_ = AnimationOf("line.ltf", "2\n0 0 1000 1");
};

TEST_F(BakeResultsTest, TheScriptMakesTheSameSceneAsTheBake) {
  std::mt19937 random(5);
  std::uniform_real_distribution<double> number(-3.0, 3.0);
  for (int i = 0; i < 20; ++i) {
    const auto bone = [&] {
      const double angle = number(random);
      return BoneLine{{number(random), 1e3 * number(random), number(random)},
                      {-std::cos(angle / 2), std::sin(angle / 2), 0, 0}};
    };
    lbp_ = folder_.Make("face.lbp", LbpText({"lip", "jaw"}, {{bone(), bone()}, {bone(), bone()}}));
    std::string keys;
    for (int k = 0; k < 10; ++k)
      keys += std::to_string(40 * k) + " " + std::to_string(number(random)) + " ";
    ltf_ = AnimationOf("line.ltf", "10\n" + keys);
    ExpectTheSame({"--start", std::to_string(std::round(2 * number(random)) / 2)});
  }
  lbp_ = ExportExample(kExamples + "face_poses.ma", "20");
  scene_ = kExamples + "face_rig.ma";
  ltf_ = kExamples + "hello.ltf";
  ExpectTheSame({});
}

TEST_F(BakeResultsTest, ScenesShowTheWholeLineAndPlayItsSound) {
  scene_ = folder_.Make("short.ma",
                        FileContent(scene_).replace(FileContent(scene_).find("999"), 3, "24"));
  Wav();
  const ProcessResult result = Bake("out.ma", {"--start", "10", "--sound", "./line 1.wav"});
  EXPECT_EQ(result.status, 0);
  EXPECT_TRUE(Has(result.err, "Note: the playback range now ends at frame 40 (it ended at 24)\n"));
  EXPECT_TRUE(Has(folder_.Content("out.ma"), "\"playbackOptions -min -9 -max 40\";\n"));
  EXPECT_TRUE(Has(folder_.Content("out.ma"),
                  "createNode audio -n \"line_1\";\n\tsetAttr \".ef\" 25;\n\tsetAttr \".se\" 15;\n"
                  "\tsetAttr \".f\" -type \"string\" \"./line 1.wav\";\n\tsetAttr \".o\" 10;\n"));
  scene_ = folder_.Path("out.ma");
  const ProcessResult again = Bake("again.ma", {"--start", "10", "--sound", "./line 1.wav"});
  EXPECT_TRUE(Has(again.err,
                  "Note: the scene has the sound ./line 1.wav already, as line_1: that "
                  "stays as it is\n"));
  EXPECT_EQ(folder_.Content("again.ma"), folder_.Content("out.ma"));
}

TEST_F(BakeResultsTest, RefusesWhatWouldBeLost) {
  const ProcessResult sound = Bake("line.mel", {"--sound", Wav()});
  EXPECT_EQ(sound.status, 2);
  EXPECT_TRUE(Has(Bake("out.ma", {"--sound", "-"}).err, "--sound: the scene names the file"));
  EXPECT_TRUE(Has(sound.err, "--sound: goes with a scene")) << sound.err;
  ExpectFailure({"bake", scene_, lbp_, ltf_, "-o", folder_.Path("out.ma"), "--sound", ltf_},
                ltf_ + ": it is no WAV file");
  scene_ = folder_.Make("scene.mel", kFaceScene);
  EXPECT_EQ(Bake("scene.mel").status, 2);
  EXPECT_EQ(folder_.Names(),
            (std::set<std::string>{"face.lbp", "face.ma", "line 1.wav", "line.ltf", "scene.mel"}));
}

}  // namespace
}  // namespace lipvane::test
