#include <algorithm>

#include "tests/cli/cli_test.h"

namespace lipvane::test {
namespace {

BoneLine At(double x) {
  return {{x, 0, 0}, {-1, 0, 0, 0}};
}

/// A jaw that "Eat" moves by 10, and lids that expressions move: the left brow's pose moves none.
const std::string kFace =
    LbpText({"jaw", "l,id"},
            {{At(0), At(5)}, {At(10), At(5)}, {At(0), At(5)}, {At(0), At(7)}, {At(0), At(6)}});
constexpr char kLine[] =
    "LTF\n1.0\n0\n1\n{\nEat\n2\n0 0 1000 1\n}\n1\n{\nBlink_Left\n1\n500 0.5\n}\n";

class PlayTest : public CliTest {
 protected:
  ProcessResult Play(const Arguments& more) { return Lipvane({"play", lbp_, ltf_}, more); }
  json Frames(const Arguments& more) {
    const ProcessResult result = Play(more);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    return json::parse(result.out)["frames"];
  }

  std::string lbp_ = folder_.Make("face.lbp", kFace);
  std::string ltf_ = folder_.Make("line.ltf", kLine);
};

TEST_F(PlayTest, PrintsWhatTheControllerMakes) {
  const json played = json::parse(Play({"--at=500,-5,2000,2000"}).out);
  EXPECT_EQ(played["ticksPerSecond"], 1000);
  EXPECT_EQ(played["speechTargets"], json::parse(R"(["Eat"])"));
  EXPECT_EQ(played["expressions"],
            json::parse(R"(["Eyebrow_Raise_Left", "Eyebrow_Raise_Right", "Blink_Left"])"));
  ASSERT_EQ(played["frames"].size(), 4U);
  // In ascending order; outside of the animation there are no weights yet, and expressions all the
  // same.
  EXPECT_EQ(played["frames"][0], json::parse(R"({"time": -5.0, "inside": false, "weights": [],
      "expressionWeights": [0.0, 0.0, 0.5], "bones": [
        {"id": 1, "name": "jaw", "translation": [0.0, 0.0, 0.0], "rotation": [1.0, 0.0, 0.0, 0.0]},
        {"id": 2, "name": "l,id", "translation": [5.5, 0.0, 0.0],
         "rotation": [-1.0, 0.0, 0.0, 0.0]}]})"));
  // The blend has made weights for the poses that no track drives.
  EXPECT_EQ(played["frames"][1]["weights"], json::parse("[0.0, 0.5, 0.0, 0.0, 0.0]"));
  EXPECT_EQ(played["frames"][1]["bones"][0]["translation"][0], 5.0);
  // After the end the weights stay as they were.
  EXPECT_EQ(played["frames"][2]["inside"], false);
  EXPECT_EQ(played["frames"][2]["weights"], played["frames"][1]["weights"]);
  EXPECT_EQ(played["frames"][3], played["frames"][2]);
}

TEST_F(PlayTest, SamplesDoNotPassTheLength) {
  const auto times = [&](const Arguments& more) {
    std::vector<double> list;
    for (const json& frame : Frames(more)) {
      list.push_back(frame["time"]);
      EXPECT_EQ(frame["inside"], true);
    }
    return list;
  };
  EXPECT_EQ(times({"--fps", "4"}), (std::vector<double>{0, 250, 500, 750, 1000}));
  EXPECT_EQ(times({"--fps", "2.5"}), (std::vector<double>{0, 400, 800}));
  EXPECT_EQ(times({"--fps", "2", "--ticks-per-second", "600.5"}),
            (std::vector<double>{0, 300.25, 600.5, 900.75}));
  EXPECT_EQ(times({}).size(), 31U);
  EXPECT_EQ(times({})[30], 1000);
  EXPECT_EQ(times({"--fps", "0.001"}), std::vector<double>{0});
  // A length over a rate that is only nearly a whole number of frames.
  ltf_ = AnimationOf("2500.ltf", "1\n2500 0");
  const auto film = times({"--fps", "23.976", "--ticks-per-second", "30"});
  ASSERT_EQ(film.size(), 1999U);
  EXPECT_EQ(film[1998], 2500);
}

TEST_F(PlayTest, WritesCsvWithARowAFrame) {
  const std::string file = folder_.Path("frames.CSV");
  EXPECT_EQ(Play({"--at=-1,0.1", "-o", file}).status, 0);
  EXPECT_EQ(folder_.Content("frames.CSV"),
            "time,inside,weight.Neutral,weight.Eat,weight.Eyebrow_Raise_Left,"
            "weight.Eyebrow_Raise_Right,weight.Blink_Left,expression.Eyebrow_Raise_Left,"
            "expression.Eyebrow_Raise_Right,expression.Blink_Left,"
            "jaw.tx,jaw.ty,jaw.tz,jaw.qw,jaw.qx,jaw.qy,jaw.qz,\"l,id.tx\",\"l,id.ty\",\"l,id.tz\","
            "\"l,id.qw\",\"l,id.qx\",\"l,id.qy\",\"l,id.qz\"\n"
            "-1,0,,,,,,0,0,0.5,0,0,0,1,0,0,0,5.5,0,0,-1,0,0,0\n"
            "0.1,1,0,2.9998e-08,0,0,0,0,0,0.5,2.999800017278176e-07,0,0,1,0,0,0,"
            "5.5,0,0,-1,0,0,0\n");
}

TEST_F(PlayTest, CsvHasAColumnForTracksBeyondThePoses) {
  std::string tracks;
  for (int i = 0; i < 6; ++i)
    tracks += "{\nEat\n1\n0 0." + std::to_string(i) + "\n}\n";
  ltf_ = folder_.Make("six.ltf", "LTF\n1\n0\n6\n" + tracks + "0\n");
  ASSERT_EQ(Play({"-o", "six.csv", "--force"}).status, 0);
  const std::string csv = folder_.Content("six.csv");
  EXPECT_TRUE(Has(csv, "weight.Blink_Left,weight.Blink_Right,weight.pose 6,expression."));
  EXPECT_TRUE(Has(csv, "\n0,1,0,0,0.1,0.2,0.3,0.4,0.5,0,0,0,")) << csv;
}

TEST_F(PlayTest, WhatIsNotANumberIsNullAndTheFileIsWhole) {
  ltf_ = AnimationOf("nan.ltf", "2\n5 0 5 1");
  const std::string file = folder_.Path("frames.json");
  const ProcessResult result = Play({"--at", "5", "-o", file});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out + result.err, "");
  const json frame = json::parse(folder_.Content("frames.json"))["frames"][0];
  EXPECT_EQ(frame["weights"][1], nullptr);
  EXPECT_EQ(frame["bones"][0]["translation"][0], nullptr);
  EXPECT_EQ(Play({"--at", "5", "-o", "frames.csv"}).status, 0);
  EXPECT_TRUE(Has(folder_.Content("frames.csv"), "\n5,1,0,,0,0,0,"));
}

TEST_F(PlayTest, PoseFilesThatLackPosesNeedForce) {
  const std::string timing = folder_.Make("aa.txt", "0 0.4 P1\n");
  const std::string scene = folder_.Make("face.ma", kFaceScene);
  const std::string none = folder_.Make("none.lbp", LbpText({"lip"}, {}));
  const std::string few = folder_.Make("few.lbp", LbpText({"lip"}, {{{}}}));
  for (const std::string& lbp : {none, few}) {
    const std::string why = lbp + (lbp == none ? ":52: 0 poses are" : ":52: 1 pose is") +
                            " too few for the neutral one and 1 speech target; ";
    for (const Arguments& one : std::vector<Arguments>{{"play", lbp, ltf_},
                                                       {"bake", scene, lbp, ltf_, "-o", "o.ma"},
                                                       {"speak", timing, lbp, "-o", "o.ltf"},
                                                       {"map", lbp, "Face", "-o", "o.map"}}) {
      const ProcessResult refused = Lipvane(one);
      const ProcessResult forced = Lipvane(one, {"--force"});
      EXPECT_EQ(forced.status, 0) << forced.err;
      const bool isFine = one[0] == "map" && lbp == few;  // it has all that is asked of it
      EXPECT_EQ(refused.status, isFine ? 0 : 1) << one[0];
      EXPECT_EQ(refused.err.rfind("Error: " + why, 0) == 0, !isFine) << refused.err;
      EXPECT_EQ(forced.err.rfind("Warning: " + why, 0) == 0, !isFine) << forced.err;
    }
  }
  const std::string still = AnimationOf("still.ltf", "1\n50 0");
  EXPECT_EQ(Lipvane({"play", few, still}).status, 0) << "no track moves anything";
  const std::string mouth = folder_.Make("mouth.lbp", LbpText({"lip"}, {{{}}, {{}}}));
  EXPECT_EQ(Lipvane({"play", mouth, ltf_}).err,
            "Warning: " + ltf_ + ": nothing shows the expression \"Blink_Left\": " + mouth +
                " has no pose for it\n");
}

TEST_F(PlayTest, SaysWhatCannotBePlayed) {
  const std::string vast = AnimationOf("vast.ltf", "1\n2147483647 0");
  const std::string old = folder_.Make("old.lbp", "1\n");
  const Refusals cases = {
      {{old, ltf_}, old + ":1: the version is 1, not 2"},
      {{lbp_, vast},
       vast + ": its length of 2147483647 makes more than 1000000 frames at 30 a second and 1000 "
              "ticks a second"},
      {{lbp_, ltf_, "-o", "/no/such/f.json"}, "/no/such/f.json: there is no folder /no/such"},
      {{lbp_, ltf_, "-o", folder_.Path()}, folder_.Path() + ": Is a directory"}};
  for (const auto& [arguments, error] : cases) {
    ExpectFailure({"play"}, error, arguments);
  }
  EXPECT_EQ(Lipvane({"play", lbp_, vast, "--at", "2147483647"}).status, 0);
}

}  // namespace
}  // namespace lipvane::test
