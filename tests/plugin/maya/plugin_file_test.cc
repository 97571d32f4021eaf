// The plug-in file inside a process that is not ours.

#include "tests/maya_standin/plugin_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "lipvane/host/standalone/interpreter.h"
#include "lipvane/plugin/registration.h"
#include "tests/maya_standin/embedded_maya.h"
#include "tests/support/allocations.h"
#include "tests/support/comma_locale.h"
#include "tests/support/embedded_scene.h"
#include "tests/support/lbp_text.h"
#include "tests/support/temporary_folder.h"

namespace lipvane::test {
namespace {

using Texts = std::vector<std::string>;

NodeDescription Joint(const std::string& path) {
  NodeDescription node;
  node.path = path;
  return node;
}

standalone::Scene SceneOf(const SceneDescription& description, const std::string& more = {}) {
  return standalone::Scene::Parse(MayaAscii(description) + more, "described.ma");
}

class PluginFileTest : public testing::Test {
 protected:
  std::string Lbp(const Texts& bones, const std::vector<std::vector<BoneLine>>& poses) {
    std::ofstream(folder_.Path("given.lbp")) << LbpText(bones, poses);
    return folder_.Path("given.lbp");
  }

  TemporaryFolder folder_;
};

TEST_F(PluginFileTest, EntryPointsRegisterAndWithdraw) {
  RecordingHost host({});
  RecordingStandinScene scene(host);
  Standin standin(scene);
  standin.refused = {"demBonesExportPoses"};
  const PluginFile file(LIPVANE_PLUGIN_FILE);
  EXPECT_EQ(file.ApiVersion(), std::to_string(MAYA_API_VERSION));
  // The last registration's status counts.
  EXPECT_EQ(file.Initialize().statusCode(), MStatus::kSuccess);
  EXPECT_EQ(standin.commands.count("facialAnim"), 1u);
  EXPECT_EQ(file.Uninitialize().statusCode(), MStatus::kSuccess);
  EXPECT_EQ(file.Uninitialize().statusCode(), MStatus::kFailure);
  const Texts loading = {"open Tamsk Entertainment/4.0/Any", "register demBonesExportPoses",
                         "register facialAnim"};
  const Texts unloading = {"open Unknown/Unknown/Any", "deregister demBonesExportPoses",
                           "deregister demBonesImportPoses", "deregister demBonesGenerateAnimation",
                           "deregister facialAnim"};
  Texts expected = loading;
  for (int times = 0; times < 2; ++times)
    expected.insert(expected.end(), unloading.begin(), unloading.end());
  EXPECT_EQ(standin.registrations, expected);
  standin.refused = {"facialAnim"};
  EXPECT_EQ(file.Initialize().statusCode(), MStatus::kFailure);
  file.Uninitialize();
}

TEST_F(PluginFileTest, EntryPointsLetNoExceptionThrough) {
  const PluginFile file(LIPVANE_PLUGIN_FILE);  // no host: each of its calls throws
  EXPECT_EQ(file.Initialize().statusCode(), MStatus::kFailure);
  EXPECT_EQ(file.Uninitialize().statusCode(), MStatus::kFailure);
}

TEST_F(PluginFileTest, TheSyntaxIsTheOneThatTheHostWants) {
  auto scene = SceneOf({});
  const EmbeddedMaya maya(scene);
  const auto flags = [&](const std::string& command) {
    const MSyntax syntax = maya.standin.commands.at(command).syntax();
    Texts names;
    for (const host::Flag& flag : syntax.Flags().Flags()) {
      names.push_back(flag.shortName + flag.longName +
                      std::to_string(static_cast<int>(flag.argument)) + (flag.multiUse ? "*" : ""));
    }
    return names;
  };
  EXPECT_EQ(flags("facialAnim"), (Texts{"-m-morph1", "-lbp-lbpfile5", "-ltf-ltffile5",
                                        "-exp-expression5*", "-imp-import1", "-sel-select1"}));
  EXPECT_EQ(flags("demBonesExportPoses"), (Texts{"-bl-bones5", "-hb-headbone5", "-lbp-lbpfile5",
                                                 "-np-numposes3", "-map-mapping5"}));
}

/// The example face, exported and then imported onto its bare rig, by a host of ours.
struct RoundTrip {
  std::string file;
  std::map<std::string, std::map<double, double>> curves;
};

template <class Run>
RoundTrip MakeRoundTrip(const TemporaryFolder& folder, Run run) {
  const std::string examples = LIPVANE_SOURCE_DIR "/examples";
  std::string bones = FileContent(examples + "/bones.txt");
  bones.erase(bones.find_last_not_of('\n') + 1);
  auto posed = standalone::Scene::Open(examples + "/face_poses.ma");
  auto rig = standalone::Scene::Open(examples + "/face_rig.ma");
  // A relative name counts from where the process stands, as everywhere.
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder.Path());
  run(posed, "demBonesExportPoses",
      Texts{"-bl", bones, "-hb", "head", "-lbp", "face.lbp", "-np", "20"});
  std::filesystem::current_path(before);
  run(rig, "facialAnim", Texts{"-import", "-lbp", folder.Path("face.lbp")});
  return {folder.Content("face.lbp"), CurvesOf(rig)};
}

TEST_F(PluginFileTest, DoesOnARigWhatTheEmbeddedHostDoes) {
  const RoundTrip embedded =
      MakeRoundTrip(folder_, [](standalone::Scene& scene, const std::string& command, Texts words) {
        standalone::Interpreter interpreter(scene, {});
        plugin::InitializePlugin(interpreter);
        words.insert(words.begin(), command);
        EXPECT_FALSE(interpreter.Run(words).Failed());
      });
  const CommaLocale comma;
  const RoundTrip file = MakeRoundTrip(
      folder_, [](standalone::Scene& scene, const std::string& command, const Texts& words) {
        EmbeddedMaya maya(scene);
        EXPECT_TRUE(maya.Run(command, words));
        EXPECT_TRUE(maya.shown.empty());
      });
  EXPECT_GT(file.file.size(), 100000u);
  EXPECT_EQ(file.file, embedded.file);
  EXPECT_EQ(file.curves.size(), 41u * 9u);
  EXPECT_EQ(file.curves, embedded.curves);
}

TEST_F(PluginFileTest, ASecondImportKeysTheCurvesThereAre) {
  auto scene = SceneOf({Joint("|jaw")});
  EmbeddedMaya maya(scene);
  EXPECT_TRUE(maya.Run("facialAnim", {"-imp", "-lbp", Lbp({"jaw"}, {{{}}, {{}}, {{}}})}));
  EXPECT_TRUE(
      maya.Run("facialAnim", {"-imp", "-lbp", Lbp({"jaw"}, {{{{5, 0, 0}}}, {{{6, 0, 0}}}})}));
  EXPECT_EQ(CurvesOf(scene).at("|jaw.translateX"),
            (std::map<double, double>{{0, 5}, {10, 6}, {20, 0}}));
  EXPECT_TRUE(maya.shown.empty());
}

TEST_F(PluginFileTest, NamesEveryChannelThatTakesNoKeyOnce) {
  NodeDescription jaw = Joint("|jaw");
  jaw.frames[0] = {};
  NodeDescription lip = Joint("|lip");
  lip.drivers = {{"rotateX", "aim"}, {"rotateY", "driven"}, {"scaleZ", "size"}};
  auto scene = SceneOf({jaw, lip},
                       "select -ne |jaw;\nsetAttr -l on \".tz\";\n"  // though a curve drives it
                       "select -ne |lip;\nsetAttr -l on \".tz\";\n");
  EmbeddedMaya maya(scene);
  maya.standinScene.drivenKeys = {"driven"};
  maya.standinScene.compoundDrivers = {"size"};
  // The same bone twice is tried twice.
  const std::vector<BoneLine> pose(3, BoneLine{{1, 2, 3}, {1, 0, 0, 0}});
  EXPECT_TRUE(maya.Run("facialAnim", {"-imp", "-lbp", Lbp({"jaw", "lip", "lip"}, {pose, pose})}));
  const std::string tail = " (not a curve over time)";
  EXPECT_EQ(maya.shown,
            (std::vector<Shown>{{"warning", "|jaw loses keys: translateZ locked", ""},
                                {"warning",
                                 "|lip loses keys: rotateX driven by aim" + tail +
                                     "; rotateY driven by driven" + tail + "; translateZ locked",
                                 ""}}));
  const auto curves = CurvesOf(scene);
  for (const char* channel : {"|lip.translateZ", "|lip.rotateX", "|lip.rotateY", "|lip.scaleZ"})
    EXPECT_EQ(curves.count(channel), 0u) << channel;
  EXPECT_EQ(curves.at("|jaw.translateZ").size(), 1u);
  EXPECT_EQ(curves.at("|jaw.translateZ").at(0), 0.0);
  EXPECT_EQ(curves.at("|lip.rotateZ").size(), 2u);
}

TEST_F(PluginFileTest, KeysNoCurveThatIsRetimedOrLockedAsOneOrAnotherJoints) {
  NodeDescription jaw = Joint("|jaw");
  jaw.frames[0] = {};
  auto scene = SceneOf({jaw},
                       "createNode animCurveTT -n \"warp\";\n"
                       "connectAttr \"warp.o\" \"jaw1_rx.i\";\n"
                       "createNode joint -n \"twin\";\nconnectAttr \"twin.ry\" \"|jaw.ry\";\n"
                       "select -ne |jaw;\nsetAttr -l on \".tx\";\n");
  EmbeddedMaya maya(scene);
  maya.standinScene.retimedCurves = {"jaw1_rx"};
  maya.standinScene.lockedAsOne = {"|jaw.translateX"};
  maya.standinScene.between["|jaw.rotateY"] = {"joint"};
  EXPECT_TRUE(maya.Run("facialAnim", {"-imp", "-lbp", Lbp({"jaw"}, {{{{1, 2, 3}}}})}));
  EXPECT_EQ(maya.shown,
            (std::vector<Shown>{{"warning",
                                 "|jaw loses keys: rotateX driven by jaw1_rx (not a curve over "
                                 "time); rotateY driven by joint (not a curve over time); "
                                 "translateX locked",
                                 ""}}));
}

TEST_F(PluginFileTest, PrintsNothing) {
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  {
    auto scene = SceneOf({Joint("|jaw")});
    EmbeddedMaya maya(scene);
    maya.Run("facialAnim", {"-imp", "-lbp", Lbp({"jaw", "nobody"}, {{{}, {}}})});
    maya.Run("facialAnim", {"-sel", "-lbp", folder_.Path("missing")});
    maya.Run("demBonesExportPoses", {"-hb", "world", "-lbp", folder_.Path("out.lbp"), "-np", "1"});
    maya.Run("demBonesExportPoses", {"-map", ""});
    EXPECT_EQ(maya.shown.size(), 4u);
  }
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(PluginFileTest, LeavesNothingBehindWhenItIsUnloaded) {
  const std::string given = Lbp({"jaw"}, {{{}}});
  auto scene = SceneOf({Joint("|jaw")});
  std::ptrdiff_t after = 0;
  for (int times = 0; times < 100; ++times) {
    {
      EmbeddedMaya maya(scene);
      ASSERT_TRUE(maya.Run("facialAnim", {"-imp", "-lbp", given}));
      ASSERT_TRUE(IsOpen(LIPVANE_PLUGIN_FILE));
    }
    ASSERT_FALSE(IsOpen(LIPVANE_PLUGIN_FILE));
    if (times == 1) after = LiveAllocations();  // the second one finds the curves there
  }
  EXPECT_EQ(LiveAllocations(), after);
}

TEST_F(PluginFileTest, TenThousandInvocationsLeaveNothingBehind) {
  const std::string given = Lbp({"jaw", "nobody"}, {{{}, {}}});
  const std::string written = folder_.Path("written.lbp");
  auto scene = SceneOf({Joint("|jaw")});
  EmbeddedMaya maya(scene);
  std::ptrdiff_t after = 0;
  for (int times = 0; times < 10000; ++times) {
    ASSERT_TRUE(maya.Run("facialAnim", {"-imp", "-exp", "a", "-lbp", given}));
    ASSERT_TRUE(maya.Run("facialAnim", {"-sel", "-lbp", given}));
    ASSERT_TRUE(maya.Run("demBonesExportPoses",
                         {"-bl", "jaw", "-hb", "head", "-lbp", written, "-np", "1"}));
    maya.shown.clear();
    if (times == 10) after = LiveAllocations();
  }
  EXPECT_EQ(LiveAllocations(), after);
}

}  // namespace
}  // namespace lipvane::test
