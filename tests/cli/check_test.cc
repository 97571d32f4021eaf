#include "tests/cli/cli_test.h"
#include "tests/speech/timing_examples.h"

namespace lipvane::test {
namespace {

class CheckTest : public CliTest {
 protected:
  /// One speech target and two of the expressions; of one bone, its count of poses is line 52.
  std::string Face(const std::vector<std::string>& bones) const {
    const std::vector<BoneLine> rest(bones.size());
    const std::vector<BoneLine> pose(bones.size(), {{0, 0, 1}, {1, 0, 0, 0}});
    return folder_.Make("face.lbp", LbpText(bones, {rest, pose, pose, pose}));
  }
  std::string Animation(const std::string& target, const std::string& expression) const {
    return folder_.Make("a.ltf", "LTF\n1.0\n0\n1\n{\n" + target + "\n0\n}\n1\n{\n" + expression +
                                     "\n2\n0 0 0 1\n}\n");
  }
};

TEST_F(CheckTest, PrintsOneFindingALine) {
  const std::string file = Face({"jaw"});
  const std::string finding =
      file + ":52: warning: 4 poses give only 2 of the 4 expressions [expression-poses]\n";
  const ProcessResult odd = Lipvane({"check", file});
  EXPECT_EQ(odd.out, finding);
  EXPECT_EQ(odd.err, "");
  EXPECT_EQ(odd.status, 0);  // no error among them

  const std::string note = folder_.Make("note.txt", "hello");
  const std::string missing = folder_.Path("missing.lbp");
  const ProcessResult bad = Lipvane({"check", missing, note, file});
  EXPECT_EQ(bad.out, note +
                         ":1: error: this is no bone pose file (LBP), animation file (LTF) or "
                         "timing file [unreadable]\n" +
                         finding);
  EXPECT_EQ(bad.err, "Error: " + missing + ": No such file or directory\n");
  EXPECT_EQ(bad.status, 1);
  EXPECT_EQ(Lipvane({"check", missing, file}).status, 1);
  EXPECT_EQ(Lipvane({"check", note}).status, 1);
}

TEST_F(CheckTest, HoldsPoseFilesAgainstAScene) {
  const std::string scene = folder_.Make("face.ma", kFaceScene);
  const std::string file = Face({"jaw", "chin", "eye"});
  const ProcessResult result = Lipvane({"check", file, "--scene", scene});
  EXPECT_TRUE(Has(result.out, file + ":49: error: bone \"chin\" is not in " + scene)) << result.out;
  EXPECT_TRUE(Has(result.out, file + ":50: warning: bone \"eye\" is in " + scene + " 2 times"))
      << result.out;
  EXPECT_LT(result.out.find("[bone-repeated]"), result.out.find("[expression-poses]"));
  EXPECT_LT(result.out.find("[expression-poses]"), result.out.find("[no-keys]"));
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(Lipvane({"check", Face({"jaw"}), "--scene", scene}).status, 0);

  EXPECT_TRUE(Has(Lipvane({"check", scene}).out, scene + ":1: error: this is a Maya ASCII scene"));
  const ProcessResult alone = Lipvane({"check", scene, "--scene", scene});
  EXPECT_TRUE(Has(alone.err, "Warning: " + scene + ": there is no bone pose file")) << alone.err;
  const ProcessResult none = Lipvane({"check", file, "--scene", folder_.Path("none.ma")});
  EXPECT_TRUE(Has(none.out, "[expression-poses]")) << none.out;
  EXPECT_TRUE(Has(none.err, "Error: " + folder_.Path("none.ma"))) << none.err;
  EXPECT_EQ(none.status, 1);
}

TEST_F(CheckTest, AnimationsUseTheNamesOfTheFirstPoseFile) {
  const std::string animation = Animation("Eat", "Blink_Left");
  const std::string twoKeys =
      animation +
      ":13: error: key 2 of track \"Blink_Left\" is at 0 like the one before "
      "it: as the last two keys they give no number there "
      "[equal-last-times]\n";
  EXPECT_EQ(Lipvane({"check", animation}).out, twoKeys);
  // Two expression poses are the brows alone.
  const std::string cut = folder_.Make("cut.lbp", "2\n");
  const ProcessResult result = Lipvane({"check", animation, cut, Face({"jaw"})});
  EXPECT_EQ(result.out.find(animation + ":11: warning: expression track \"Blink_Left\" bears"), 0U)
      << result.out;
  EXPECT_TRUE(Has(result.out, twoKeys));
  std::string other = FileContent(Face({"jaw"}));
  other.replace(other.find("Eat"), 3, "Ox");
  const std::string speech = "speech track \"Eat\" bears the name of no speech target";
  const std::string ox = folder_.Make("ox.lbp", other);
  EXPECT_FALSE(Has(Lipvane({"check", animation, Face({"jaw"}), ox}).out, speech));
  EXPECT_TRUE(Has(Lipvane({"check", animation, ox, Face({"jaw"})}).out, speech));
}

TEST_F(CheckTest, WarnsOfReferencesThatAreNotRead) {
  const std::string scene = folder_.Make(
      "shot.ma", "//Maya ASCII 2024 scene\nfile -r -ns \"rig\" -rfn \"rigRN\" \"rig.ma\";\n");
  EXPECT_EQ(Lipvane({"check", Face({"jaw"}), "--scene", scene}).err,
            "Warning: the nodes of the referenced file \"rig.ma\" are missing: it is not read\n");
}

TEST_F(CheckTest, AFindingIsOneLineWhateverNamesHold) {
  folder_.Make("x\n\x1B[31m.lbp", "2\n");
  EXPECT_EQ(Lipvane({"check", "x\n\x1B[31m.lbp"}).out,
            "x\\n?[31m.lbp:1: error: the file ends where the number of speech targets is expected "
            "[unreadable]\n");
}

TEST_F(CheckTest, PrintsJson) {
  const std::string file = folder_.Make("cut.lbp", "2\n");
  const std::string missing = folder_.Path("missing.lbp");
  const ProcessResult result =
      Lipvane({"check", file, missing, Face({"jaw"}), "--json", "--scene", "none.ma"});
  EXPECT_EQ(result.status, 1);
  const json report = json::parse(result.out);
  ASSERT_EQ(report["findings"].size(), 4U);
  json finding = {{"file", file}, {"line", 1}, {"severity", "error"}, {"rule", "unreadable"}};
  finding["text"] = "the file ends where the number of speech targets is expected";
  EXPECT_EQ(report["findings"][0], finding);
  EXPECT_EQ(report["findings"][1]["text"], "No such file or directory");
  EXPECT_EQ(report["findings"][1]["file"], missing);
  EXPECT_EQ(report["findings"][3]["file"], "none.ma");
  EXPECT_EQ(result.err, "Error: " + missing +
                            ": No such file or directory\n"
                            "Error: none.ma: No such file or directory\n");
  EXPECT_EQ(report["errors"], 3);
  EXPECT_EQ(report["warnings"], 1);
  EXPECT_EQ(report["notes"], 0);
}

TEST_F(CheckTest, TakesTimingFiles) {
  const std::string line =
      folder_.Make("line.txt",
                   "0 0.2 hm\n0.2 0.24 B\n0.24 0.26 K\n0.26 0.29 M\n0.29 0.3 sp\n0.3 2 "
                   "hm\n2 3 spn\n");
  const ProcessResult result = Lipvane({"check", line});
  EXPECT_EQ(
      result.out,
      line + ":1: error: \"hm\" at 0 s, 2 times, stands for no phoneme [unknown-label]\n" + line +
          ":2: warning: 2 closures (P, B, M, F, V) are shorter than a frame at 24 frames "
          "a second (41.7 ms), the first \"B\" at 0.2 s: perhaps no frame shows the lips meet "
          "[short-closure]\n" +
          line +
          ":3: note: 1 sound is shorter than a frame at 24 frames a second (41.7 ms), \"K\" at "
          "0.24 s: perhaps no frame shows it [short-sound]\n" +
          line +
          ":7: warning: a word that the aligner did not know (spn): the mouth stays shut at 2 s "
          "[unknown-word]\n");
  EXPECT_EQ(result.status, 1);
  // At the film's own rate, or the scene's of 30; a frame's length is long enough.
  EXPECT_FALSE(Has(Lipvane({"check", line, "--fps", "50"}).out, "closure"));
  const std::string scene = folder_.Make("face.ma", kFaceScene);
  EXPECT_TRUE(Has(Lipvane({"check", line, "--scene", scene}).out, "1 closure (P, B, M, F, V) is"));
  EXPECT_TRUE(Has(Lipvane({"check", line, "--fps", "25"}).out, "1 closure (P, B, M, F, V) is"));
  // With the phonemes of the first face.
  EXPECT_TRUE(Has(Lipvane({"check", line, Face({"jaw"})}).out,
                  "\"B\" at 0.2 s stands for the phoneme B, which the face lacks [unknown-label]"));

  const std::string grid = folder_.Make("a.TextGrid", speech::test::kShortTextGrid);
  EXPECT_EQ(Lipvane({"check", grid}).out, "");
  EXPECT_TRUE(Has(Lipvane({"check", grid, line, "--tier", "words"}).out,
                  grid + ":15: error: the tier \"words\" holds words, not sounds; the tier "
                         "\"Ann - Phones\" holds the sounds. Not known as sounds: \"a \"so\" "
                         "\\ncalled\" at 0.2 s [words-tier]\n"));
  EXPECT_TRUE(
      Has(Lipvane({"check", grid, "--tier", "x"}).out, ":1: error: there is no tier \"x\""));
  // A frame of a Moho file is one of the film's.
  const std::string moho = folder_.Make("line.dat", "MohoSwitch1\n1 rest\n2 MBP\n3 AI\n9 rest\n");
  EXPECT_EQ(Lipvane({"check", moho, "--fps", "12"}).out, "");
}

TEST_F(CheckTest, TheExampleHasNoFindings) {
  const std::string file = ExportExample(kExamples + "face_poses.ma", "20");
  for (const char* scene : {"face_poses.ma", "face_rig.ma"}) {
    const ProcessResult result =
        Lipvane({"check", file, kExamples + "hello.ltf", kExamples + "hello.TextGrid", "--scene",
                 kExamples + scene});
    EXPECT_EQ(result.out + result.err, "") << scene;
    EXPECT_EQ(result.status, 0);
  }
}

}  // namespace
}  // namespace lipvane::test
