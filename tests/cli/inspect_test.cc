#include "tests/cli/cli_test.h"

namespace lipvane::test {
namespace {

class InspectTest : public CliTest {
 protected:
  static json Json(const std::string& file) {
    const ProcessResult result = Lipvane({"inspect", file, "--json"});
    EXPECT_EQ(result.status, 0) << result.err;
    return json::parse(result.out);
  }
};

TEST_F(InspectTest, PrintsAllOfAnLbpFile) {
  BoneLine bone;
  bone.translation = {0.1, -2, 3};
  bone.rotation = {-0.5, 0.5, 0.25, 1e-7};
  const json read = Json(folder_.Make("face", LbpText({"jaw", "lip"}, {{{}, bone}, {bone, {}}})));
  EXPECT_EQ(read["format"], "lbp");
  EXPECT_EQ(read["version"], 2);
  EXPECT_EQ(read["speechTargets"], json::parse(R"(["Eat"])"));
  EXPECT_EQ(read["phonemes"].size(), 43U);
  EXPECT_EQ(read["phonemes"][42], json::parse(R"({"name": "P42", "weights": [0.5]})"));
  EXPECT_EQ(read["bones"], json::parse(R"(["jaw", "lip"])"));
  EXPECT_EQ(read["hierarchy"], json::parse(R"({"nameByNumber": {"1": "jaw", "2": "lip"},
      "numberByName": {"jaw": 1, "lip": 2}, "parentByName": {"jaw": "parent", "lip": "parent"}})"));
  ASSERT_EQ(read["poses"].size(), 2U);
  // The numbers are the single-precision ones, to the last bit.
  EXPECT_EQ(read["poses"][0][1], (json{{"index", 1},
                                       {"translation", {0.1F, -2.0F, 3.0F}},
                                       {"rotation", {-0.5F, 0.5F, 0.25F, 1e-7F}}}));
}

TEST_F(InspectTest, PrintsAllOfAScene) {
  EXPECT_EQ(Json(folder_.Make("face", kFaceScene)),
            json::parse(R"({"format": "ma", "timeUnit": "ntsc",
      "nodes": [{"path": "|head", "type": "transform"}, {"path": "|head|jaw", "type": "joint"},
                {"path": "|head|jaw|lip", "type": "joint"}, {"path": "|left", "type": "transform"},
                {"path": "|left|eye", "type": "joint"}, {"path": "|right", "type": "transform"},
                {"path": "|right|eye", "type": "joint"}],
      "curves": [{"node": "|head|jaw", "attribute": "translateX", "keys": [[0, 1.5], [10, 2]]},
                 {"node": "|head|jaw", "attribute": "rotateY",
                  "keys": [[0.5, 3.141592653589793]]}]})"));
}

TEST_F(InspectTest, SummarisesForPeople) {
  const ProcessResult scene = Lipvane({"inspect", folder_.Make("face.ma", kFaceScene)});
  EXPECT_EQ(scene.status, 0) << scene.err;
  for (const char* part : {"ntsc (30 frames a second), saved at frame 5", "Linear unit: 100 cm",
                           "Nodes: 7 (4 joint, 3 transform)", "\n  jaw\n    lip\n  eye\n  eye\n",
                           "Animated channels: 2, keys from frame 0 to 10"}) {
    EXPECT_TRUE(Has(scene.out, part)) << part << "\n" << scene.out;
  }
  const ProcessResult lbp = Lipvane({"inspect", folder_.Make("f.lbp", LbpText({"jaw"}, {{{}}}))});
  EXPECT_EQ(lbp.status, 0) << lbp.err;
  for (const char* part : {"Speech targets: 1\n  Eat\n", "Phonemes: 43", "Bones: 1", "Poses: 1"}) {
    EXPECT_TRUE(Has(lbp.out, part)) << part << "\n" << lbp.out;
  }
}

TEST_F(InspectTest, PrintsAnAnimationFileForProgramsAndForPeople) {
  const std::string file =
      folder_.Make("a.ltf", "LTF\n1.0\n1\nby hand\n2\n{\nEat\n2\n0 0.1 120 1\n}\n{\nIf\n0\n}\n0\n");
  EXPECT_EQ(Json(file), json::parse(R"({"format": "ltf", "version": 1.0, "length": 120,
      "tracks": [{"name": "Eat", "keys": [[0, 0.1], [120, 1.0]]}, {"name": "If", "keys": []}],
      "expressionTracks": []})"));
  EXPECT_EQ(Lipvane({"inspect", file}).out,
            file +
                ": animation file (LTF), version 1\nLength: 120\nSpeech target tracks: 2\n"
                "  Eat: 2 keys, 0 to 120, at most 1\n  If: no keys\nExpression tracks: 0\n");
}

TEST_F(InspectTest, RefusesWithAPlaceAndAReason) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {folder_.Make("cut.lbp", "2\n1\nEat\nIy 0.5\n"),
       ":4: the file ends where a phoneme's row of weights is expected"},
      {folder_.Make("new.ltf", "LTF\n1.5\n"), ":2: the version is \"1.5\", not 1.0"},
      {folder_.Make("wide.lbp",
                    "\xFF\xFE"
                    "2"),
       ":1: the version is 0, not 2 (the file is UTF-16: save it as UTF-8 without a byte order "
       "mark)"},
      {folder_.Make("binary.ma", "FOR4\x01\x02Maya"), ": a binary scene, not a Maya ASCII one"},
      {folder_.Make("note.txt", "hello"),
       ": it is neither a bone pose file (LBP), an animation file (LTF) nor a Maya ASCII scene"}};
  for (const auto& [file, reason] : cases)
    ExpectFailure({"inspect", file, "--json"}, file + reason);
}

TEST_F(InspectTest, ControlCharactersOfAFileDoNotReachTheTerminal) {
  const std::string track = "LTF\n1\n0\n1\n{\nE\x1B[2J\n0\n";
  const std::string file = folder_.Make("a.ltf", track + "}\n0\n");
  EXPECT_TRUE(Has(Lipvane({"inspect", file}).out, "  E?[2J: no keys\n"));
  const std::string cut = folder_.Make("b.ltf", track + "\x1B}\n");
  EXPECT_EQ(Lipvane({"inspect", cut}).err,
            "Error: " + cut + ":8: the \"}\" of a track is expected here, not \"?}\"\n");
}

}  // namespace
}  // namespace lipvane::test
