#include <algorithm>
#include <cmath>
#include <numeric>
#include <regex>

#include "tests/cli/cli_test.h"

namespace lipvane::test {
namespace {

/// Turned about x, as pose files have it.
BoneLine Turned(double angle) {
  return {{100, 0, 0}, {-std::cos(angle / 2), std::sin(angle / 2), 0, 0}};
}

class BakeTest : public CliTest {
 protected:
  /// A face whose lip "Eat" turns by a third of a turn, and weights that make it turn on and on.
  std::string Face(const std::vector<std::string>& bones) {
    const std::vector<BoneLine> neutral(bones.size(), Turned(0));
    const std::vector<BoneLine> eat(bones.size(), Turned(2.0));
    return folder_.Make("face.lbp", LbpText(bones, {neutral, eat}));
  }
  ProcessResult Bake(const Arguments& more) {
    return Lipvane({"bake", scene_, lbp_, ltf_, "-o", out_}, more);
  }
  /// "node.attribute" -> keys of the baked scene.
  json Keys() {
    json keys;
    const json scene = json::parse(Lipvane({"inspect", out_, "--json"}).out);
    for (const json& curve : scene["curves"]) {
      keys[curve["node"].get<std::string>() + "." + curve["attribute"].get<std::string>()] =
          curve["keys"];
    }
    return keys;
  }

  std::string scene_ = folder_.Make("face.ma", kFaceScene);
  std::string lbp_ = Face({"lip"});
  std::string ltf_ = AnimationOf("line.ltf", "2\n0 0 100 1");
  std::string out_ = folder_.Path("out.ma");
};

TEST_F(BakeTest, KeysEveryFrameAtTheScenesOwnRate) {
  std::string pal = kFaceScene;
  pal.replace(pal.find("ntsc"), 4, "pal");
  scene_ = folder_.Make("pal.ma", pal);
  const ProcessResult result = Bake({"--start", "-1.5", "--ticks-per-second", "800"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out + result.err, "");
  const json keys = Keys();
  ASSERT_EQ(keys.size(), 8U) << "two of the scene's own, six of the lip's";
  // 25 frames a second, an eighth of a second: four frames, and one that the end falls before. The
  // scene's unit is the metre.
  EXPECT_EQ(keys["|head|jaw|lip.translateX"],
            json::parse("[[-1.5, 1.0], [-0.5, 1.0], [0.5, 1.0], [1.5, 1.0], [2.5, 1.0]]"));
  const json turn = keys["|head|jaw|lip.rotateX"];
  ASSERT_EQ(turn.size(), 5U);
  EXPECT_NEAR(turn[4][1], 2.0, 1e-6);  // as at time 100 itself
  EXPECT_NEAR(turn[0][1], 0.0, 1e-6);
  // Time 96 of 100, nearly all of the pose's own turn.
  EXPECT_NEAR(turn[3][1], 2.0 * 0.995328, 2e-3);
  // What the file held is still there.
  EXPECT_TRUE(Has(folder_.Content("out.ma"), "connectAttr \"jaw_rotateY.o\" \"jaw.ry\";"));
}

TEST_F(BakeTest, TakesAnOrientationThatMovesAsItIsAtEachFrame) {
  scene_ = folder_.Make("moving.ma", std::string(kFaceScene) +
                                         "createNode animCurveTA -n \"turn\";\n"
                                         "\tsetAttr -s 2 \".ktv[0:1]\" 0 0 3 90;\n"
                                         "connectAttr \"turn.o\" \"lip.jox\";\n");
  ltf_ = AnimationOf("still.ltf", "1\n100 0");
  ASSERT_EQ(Bake({}).status, 0);
  const json turn = Keys()["|head|jaw|lip.rotateX"];
  EXPECT_NEAR(turn[0][1], 0.0, 1e-6);
  EXPECT_NEAR(turn[3][1], -1.5707963, 1e-6);
}

TEST_F(BakeTest, WarnsOfBonesThatGetNoKeysAndBakesTheRest) {
  lbp_ = Face({"lip", "nose", "head", "eye"});
  std::string locked = kFaceScene;
  locked.insert(locked.find("createNode transform -n \"left\""), "\tsetAttr -l on \".ry\";\n");
  scene_ = folder_.Make("locked.ma", locked);
  const ProcessResult result = Bake({"--fps", "25"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(
      result.err,
      "Warning: " + scene_ +
          ": the scene shows 30 frames a second; at that rate the animation, baked for 25, has "
          "another speed\nWarning: bone \"nose\" is not in " +
          scene_ + "\nWarning: bone \"head\" is \"|head\" in " + scene_ +
          ", of the type transform and no joint: it gets no keys\n"
          "Warning: bone \"eye\" is in " +
          scene_ +
          " 2 times: the keys go to \"|right|eye\"\n"
          "Warning: locked channels keep keys from 1 of 2 bones, the first "
          "|head|jaw|lip.rotateY: unlock them\n");
  const json keys = Keys();
  EXPECT_EQ(keys["|head|jaw|lip.rotateX"].size(), 4U);
  EXPECT_EQ(keys["|right|eye.rotateX"].size(), 4U);
  EXPECT_FALSE(keys.contains("|left|eye.rotateX"));
  EXPECT_FALSE(keys.contains("|head|jaw|lip.rotateY"));
}

TEST_F(BakeTest, SaysWhatKeepsKeysFromJointsALineACause) {
  std::string rig = "createNode joint -n \"free\";\n";
  const auto drive = [&](const std::string& joint, const std::string& type, const char* from) {
    rig += "createNode joint -n \"" + joint + "\";\ncreateNode " + type + " -n \"" + joint +
           "_by\";\n";
    for (const char* to : {"tx", "ty", "tz", "rx", "ry", "rz"})
      rig += "connectAttr \"" + joint + "_by." + from + "\" \"" + joint + "." + to + "\";\n";
  };
  drive("a", "parentConstraint", "crx");
  drive("b", "orientConstraint", "crx");
  drive("c", "animCurveUA", "o");
  drive("d", "transform", "tx");
  drive("e", "multiplyDivide", "ox");
  scene_ = folder_.Make("driven.ma", rig);
  lbp_ = Face({"free", "a", "b", "c", "d", "e"});
  const auto line = [](const std::string& what, const std::string& first, bool isNode) {
    return "Warning: " + what + " bones, the first |" + first + ".translateX by " + first +
           "_by: " + (isNode ? "break the connections" : "delete them") +
           ", or bake onto a copy of the joints without them\n";
  };
  EXPECT_EQ(Bake({}).err, line("constraints keep keys from 2 of 6", "a", false) +
                              line("set-driven keys keep keys from 1 of 6", "c", false) +
                              line("controls or other joints keep keys from 1 of 6", "d", true) +
                              line("other nodes keep keys from 1 of 6", "e", true) +
                              "Warning: 5 of 6 bones get no keys\n");
  lbp_ = Face({"a"});
  EXPECT_TRUE(Has(Bake({}).err, "Error: " + scene_ + ": no channel of the joints of " + lbp_));
}

TEST_F(BakeTest, FindsBonesInANamespace) {
  const std::string plain = FileContent(kExamples + "face_rig.ma");
  const std::string spaced = std::regex_replace(
      plain, std::regex("(-[np] \"|connectAttr \"|\" \")([a-z])"), "$1shot:hero:$2");
  lbp_ = ExportExample(kExamples + "face_poses.ma", "20");
  ltf_ = kExamples + "hello.ltf";
  scene_ = kExamples + "face_rig.ma";
  ASSERT_EQ(Bake({}).status, 0);
  const std::string expected = Keys().dump();
  scene_ = folder_.Make("spaced.ma", spaced);
  EXPECT_EQ(Bake({}).err, "Error: " + lbp_ + ": none of the 41 bones is in " + scene_ +
                              " by its plain name; all are in the namespace "
                              "\"shot:hero\": give --namespace shot:hero\n");
  EXPECT_EQ(
      Bake({"--namespace", "hero"}).err,
      "Error: " + scene_ + ": there is no namespace \"hero\"; it has \"shot\", \"shot:hero\"\n");
  const ProcessResult result = Bake({"--namespace", "shot:hero"});
  EXPECT_EQ(result.err, "");
  const std::string spacedKeys = Keys().dump();
  EXPECT_EQ(std::regex_replace(spacedKeys, std::regex("shot:hero:"), ""), expected);
  // A script made with the rig's own scene fits a shot that has the rig in the namespace.
  const std::string script = folder_.Path("line.mel");
  ASSERT_EQ(Lipvane({"bake", kExamples + "face_rig.ma", lbp_, ltf_, "-o", script, "--namespace",
                     "shot:hero"})
                .status,
            0);
  ASSERT_EQ(Lipvane({"run", scene_, "-f", script, "-o", out_}).err, "");
  EXPECT_EQ(Keys().dump(), spacedKeys);
  out_ = folder_.Path("line.mel");
  EXPECT_EQ(Bake({"--namespace", "show:shot:hero"}).err, "");
  EXPECT_TRUE(Has(folder_.Content("line.mel"), "getAttr \"show:shot:hero:jaw.translateX\""));
  scene_ = folder_.Make("shot.ma", "file -r -ns \"hero\" \"rig.ma\";\n");
  EXPECT_EQ(Bake({"--namespace", "hero"}).err,
            "Warning: the nodes of the referenced file \"rig.ma\" are missing: it is not read\n"
            "Error: " +
                lbp_ + ": none of the 41 bones is in " + scene_ +
                " by its plain name; if the joints are in a referenced file, bake onto that file "
                "with -o FILE.mel and source the script in the open shot\n");
}

TEST_F(BakeTest, NamesEveryMissingBoneInFull) {
  // What the reader takes for bones counts, and they are many.
  const std::string start(70, 'x');
  std::vector<std::string> bones = {"lip", start + "_left", start + "_right"};
  for (int i = 0; i < 1200; ++i)
    bones.push_back("bone=" + std::to_string(i));
  lbp_ = Face(bones);
  const ProcessResult result = Bake({});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1202);
  EXPECT_TRUE(Has(result.err, "Warning: bone \"" + bones[2] + "\" is not in " + scene_ + "\n"));
}

TEST_F(BakeTest, ReplacesKeysOfItsFramesAndWarnsOfOthers) {
  lbp_ = Face({"jaw"});
  const ProcessResult result = Bake({"--start", "0.5"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err,
            "Warning: keys that the scene had at other times stay, on 1 channel: "
            "|head|jaw.translateX at frame 0\n");
  const json keys = Keys();
  EXPECT_EQ(keys["|head|jaw.translateX"].size(), 6U);
  EXPECT_EQ(keys["|head|jaw.rotateY"].size(), 4U) << "the one at 0.5 is replaced";
}

TEST_F(BakeTest, WarnsOfFramesThatAreNotFinite) {
  lbp_ = Face({"lip", "nod"});
  scene_ = folder_.Make("nod.ma", std::string(kFaceScene) + "createNode joint -n \"nod\";\n");
  const auto warning = [&](const std::string& keys, const std::string& at) {
    ltf_ = AnimationOf("nan.ltf", "3\n" + keys);
    const ProcessResult result = Bake({});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "Warning: bone \"lip\" and 1 more: the pose is not finite at " + at +
                              ", no keys are set there\n");
  };
  warning("0 0 100 1 100 1", "frame 3");
  EXPECT_EQ(Keys()["|head|jaw|lip.translateY"].size(), 3U);
  warning("0 0 100 1e300 200 1e300", "6 frames, the first 1");
}

TEST_F(BakeTest, ARotationThatIsNotFiniteIsNoKey) {
  // The embedded host makes finite angles of it.
  const std::vector<BoneLine> huge = {{{1, 2, 3}, {-1e20, 0, 0, 0}}};
  lbp_ = folder_.Make("huge.lbp", LbpText({"lip"}, {huge, huge}));
  const ProcessResult result = Bake({});
  EXPECT_TRUE(Has(result.err, "Warning: bone \"lip\": the pose is not finite at 4 frames"));
  EXPECT_TRUE(Keys()["|head|jaw|lip.rotateX"].empty());
}

TEST_F(BakeTest, SaysWhatCannotBeBakedAndWritesNothing) {
  const std::string vast = AnimationOf("vast.ltf", "1\n2147483647 0");
  const std::string notScene = folder_.Make("not.ma", "hello");
  const Refusals cases = {
      {{notScene, lbp_, ltf_}, notScene + ": not a Maya ASCII scene"},
      {{scene_, lbp_, vast},
       vast + ": its length of 2147483647 makes more than 1000000 frames at 30 a second and 1000 "
              "ticks a second"}};
  for (const auto& [files, error] : cases) {
    ExpectFailure({"bake", files[0], files[1], files[2], "-o", out_}, error);
    EXPECT_FALSE(folder_.Has("out.ma"));
  }
  // As many frames as there may be, and one joint too many for them.
  std::string joints;
  std::vector<std::string> names;
  for (int i = 0; i < 12; ++i) {
    names.push_back("joint" + std::to_string(i));
    joints += "createNode joint -n \"" + names.back() + "\";\n";
  }
  const std::string longLine = AnimationOf("long.ltf", "1\n999998 0");
  const ProcessResult many = Lipvane({"bake", folder_.Make("joints.ma", joints), Face(names),
                                      longLine, "-o", out_, "--fps", "1000"});
  EXPECT_EQ(many.status, 1);
  EXPECT_TRUE(Has(many.err,
                  "Error: 999999 frames on 12 joints make 71999928 keys, more than the "
                  "67108864 that a scene may be given at once\n"))
      << many.err;
  EXPECT_FALSE(folder_.Has("out.ma"));
  lbp_ = Face({"nose"});
  const ProcessResult none = Bake({});
  EXPECT_EQ(none.status, 1);
  EXPECT_TRUE(Has(none.err, "Error: " + scene_ + ": it has none of the joints of " + lbp_ + "\n"));
  lbp_ = Face({"nose", "ears", "neck", "hair", "hats"});  // many, in one sentence
  EXPECT_EQ(Bake({}).err, "Error: " + lbp_ + ": none of the 5 bones is in " + scene_ +
                              ", the first is \"nose\"\n");
  out_ = "/no/such/out.ma";
  EXPECT_EQ(Bake({}).err, "Error: /no/such/out.ma: there is no folder /no/such\n");
}

// The example line on the example rig: what was baked, exported again, is what was played.
TEST_F(BakeTest, AgreesWithPlayOnTheExample) {
  lbp_ = ExportExample(kExamples + "face_poses.ma", "20");
  scene_ = kExamples + "face_rig.ma";
  ltf_ = kExamples + "hello.ltf";
  ASSERT_EQ(Bake({"--fps", "30"}).status, 0);
  const json exported = json::parse(Lipvane({"inspect", ExportExample(out_, "10"), "--json"}).out);
  const json frames = json::parse(Lipvane({"play", lbp_, ltf_}).out)["frames"];
  ASSERT_GE(frames.size(), 90U);
  double mostMoved = 0;
  for (std::size_t pose = 0; pose * 10 < 90; ++pose) {
    const json& bones = frames[pose * 10]["bones"];
    ASSERT_EQ(bones.size(), exported["bones"].size());
    for (std::size_t i = 0; i < bones.size(); ++i) {
      EXPECT_EQ(bones[i]["name"], exported["bones"][i]);
      const auto numbers = [&](const json& bone, const char* of) {
        return bone[of].get<std::vector<double>>();
      };
      const json& baked = exported["poses"][pose][i];
      const auto r = numbers(baked, "rotation"), played = numbers(bones[i], "rotation");
      const double cosine = std::inner_product(r.begin(), r.end(), played.begin(), 0.0);
      for (std::size_t k = 0; k < 4; ++k)
        EXPECT_NEAR(r[k] * (cosine < 0 ? -1 : 1), played[k], 1e-5);
      const auto t = numbers(baked, "translation");
      for (std::size_t k = 0; k < 3; ++k)
        EXPECT_NEAR(t[k], numbers(bones[i], "translation")[k], 1e-4);
      const double before = frames[0]["bones"][i]["translation"][1];
      mostMoved = std::max(mostMoved, std::abs(t[1] - before));
    }
  }
  EXPECT_GT(mostMoved, 0.1) << "the face does move";
}

}  // namespace
}  // namespace lipvane::test
