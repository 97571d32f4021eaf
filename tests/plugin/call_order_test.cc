// Which calls of the host the commands make, in which order, and what a failure of each one does.

#include <gtest/gtest.h>

#include <algorithm>

#include "lipvane/plugin/export_poses_command.h"
#include "lipvane/plugin/facial_anim_command.h"
#include "tests/support/lbp_text.h"
#include "tests/support/recording_host.h"
#include "tests/support/temporary_folder.h"

namespace lipvane::plugin {
namespace {

using test::RecordingHost;
using test::Words;

using Calls = std::vector<std::string>;

test::SceneDescription TwoJoints() {
  test::NodeDescription head, jaw;
  head.path = "|head";
  jaw.path = "|head|jaw";
  return {head, jaw};
}

Calls operator+(Calls a, const Calls& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

Calls ForChannels(const std::string& call, const std::string& prefix, const Calls& kinds) {
  Calls calls;
  for (const std::string& kind : kinds) {
    for (const char axis : {'X', 'Y', 'Z'})
      calls.push_back(call + " " + prefix + kind + axis);
  }
  return calls;
}

const Calls kWalk = {
    "NewDagIterator",      "GetPath ",          "AttachDagNode ",         "GetPath |head",
    "AttachDagNode |head", "GetPath |head|jaw", "AttachDagNode |head|jaw"};

class CallOrder : public testing::Test {
 protected:
  std::string File(const std::string& name) const { return folder_.Path(name); }
  std::string Lbp(const Calls& bones, std::size_t poses) {
    const std::vector<test::BoneLine> pose(bones.size());
    return folder_.Make(
        "given.lbp", test::LbpText(bones, std::vector<std::vector<test::BoneLine>>(poses, pose)));
  }
  test::TemporaryFolder folder_;
};

TEST_F(CallOrder, ImportBindsThenKeysRotationBeforeTranslation) {
  RecordingHost host(TwoJoints());
  FacialAnimCommand(host).DoIt(Words({"-import", "-lbp", Lbp({"jaw"}, 2)}));
  const auto keyed = Calls{"AttachJoint |head|jaw", "GetOrientation", "EulerAngles"} +
                     ForChannels("AddKeyframe", "|head|jaw.", {"rotate", "translate"});
  const Calls expected = Calls{"NewArgDatabase"} + kWalk +
                         ForChannels("FindAttribute", "", {"translate", "rotate", "scale"}) +
                         Calls{"TransformOf |head|jaw"} +
                         ForChannels("Create", "|head|jaw.", {"translate", "rotate", "scale"}) +
                         Calls{"SetCurrentTime 0"} + keyed + Calls{"SetCurrentTime 10"} + keyed;
  EXPECT_EQ(host.Calls(), expected);
}

TEST_F(CallOrder, ExportWalksOnceAndCapturesEachPoseAfterItsTime) {
  RecordingHost host(TwoJoints());
  ExportPosesCommand(host).DoIt(
      Words({"-bl", "jaw", "-hb", "head", "-lbp", File("out.lbp"), "-np", "2"}));
  const Calls captured = {"TransformOf |head|jaw", "LocalMatrix |head|jaw", "Decompose",
                          "TransformOf |head",     "LocalMatrix |head",     "Decompose"};
  const Calls expected = Calls{"NewArgDatabase"} + kWalk +
                         Calls{"ParentOf", "ParentOf", "SetCurrentTime 0"} + captured +
                         Calls{"SetCurrentTime 10"} + captured + Calls{"SetCurrentTime 0"};
  EXPECT_EQ(host.Calls(), expected);
}

// Every call fails in turn; what was asked for goes on around it.
TEST_F(CallOrder, ImportSurvivesTheFailureOfAnyCall) {
  const std::string lbp = Lbp({"jaw", "head"}, 2);
  RecordingHost whole(TwoJoints());
  FacialAnimCommand(whole).DoIt(Words({"-import", "-lbp", lbp}));
  ASSERT_GT(whole.CallsThatCanFail(), 50u);
  for (std::size_t n = 0; n < whole.CallsThatCanFail(); ++n) {
    RecordingHost host(TwoJoints());
    host.FailCall(n);
    EXPECT_TRUE(FacialAnimCommand(host).DoIt(Words({"-import", "-lbp", lbp})).ok()) << n;
    // The time moves on whatever fails but itself.
    EXPECT_TRUE(host.currentTime == 10.0 || host.currentTime == 0.0) << n;
    std::size_t keys = 0;
    for (const auto& [channel, curve] : host.curves)
      keys += curve.size();
    if (n == 0) {
      EXPECT_EQ(host.shown.at(0).label, "MItDag constructor");
      EXPECT_EQ(keys, 0u);
    } else if (n <= 6) {
      // An unreadable node is printed once a bone; the other bone is keyed all the same.
      const std::string label = n % 2 == 1 ? "MItDag::getPath" : "MFnDagNode constructor";
      EXPECT_EQ(std::count_if(host.shown.begin(), host.shown.end(),
                              [&](const test::Shown& s) { return s.label == label; }),
                2)
          << n;
      EXPECT_EQ(keys, n <= 2 ? 24u : 12u) << n;
    } else {
      EXPECT_LE(24u - keys, 12u) << n;
      EXPECT_TRUE(host.shown.empty()) << n;
    }
  }
}

// One call fails, or all from it on: the command goes on with what is left, nothing is made up, and
// an export has all its poses.
TEST_F(CallOrder, EveryModeSurvivesTheFailureOfAnyCallAndOfAllLaterOnes) {
  const std::string lbp = Lbp({"nobody", "jaw", "head", "jaw"}, 2);
  test::SceneDescription scene = TwoJoints();
  scene.emplace_back().path = "|head|driven";
  scene.back().drivers = {{"rotateX", "aim"}};
  const Calls exported = {"-bl", "jaw nobody driven", "-hb", "head", "-np", "3", "-lbp"};
  const std::vector<Calls> modes = {
      {"-import", "-lbp", lbp},
      {"-select", "-lbp", lbp},
      {"-morph", "-exp", "Blink_Left", "-ltf", "line.ltf"},
      exported + Calls{File("out.lbp")},
      exported + Calls{File("out.lbp"), "-map", lbp},
  };
  for (const Calls& mode : modes) {
    const bool isExport = mode[0] == "-bl";
    const auto run = [&](RecordingHost& host) {
      const auto create = isExport ? &ExportPosesCommand::Create : &FacialAnimCommand::Create;
      EXPECT_TRUE(create(host)->DoIt(Words(mode)).ok());
      return isExport ? folder_.Content("out.lbp") : std::string();
    };
    RecordingHost whole(scene);
    whole.curves["|head.rotateX"][77] = 7;  // a curve that is there already
    const auto before = whole.curves;
    run(whole);
    for (std::size_t n = 0; n < 2 * whole.CallsThatCanFail(); ++n) {
      SCOPED_TRACE(testing::PrintToString(mode) + " " + std::to_string(n));
      RecordingHost host(scene);
      host.curves = before;
      n % 2 == 0 ? host.FailCall(n / 2) : host.FailFrom(n / 2);
      const std::string text = run(host);
      for (const auto& [channel, keys] : host.curves) {
        const auto& expected = whole.curves.at(channel);
        EXPECT_TRUE(std::includes(expected.begin(), expected.end(), keys.begin(), keys.end(),
                                  [](const auto& a, const auto& b) { return a.first < b.first; }))
            << channel;
      }
      EXPECT_EQ(host.curves.at("|head.rotateX").at(77), 7);
      EXPECT_TRUE(n != 1 || host.curves == before);  // nothing works at all
      // The last bone decides between all of them and none.
      EXPECT_LE(host.selection.size(), 2u);
      if (isExport) {
        // Where the skeleton cannot be walked the header ends with its title, and the poses follow.
        EXPECT_EQ(text.find("head_bone=head") != std::string::npos, n > 1);
        for (const char* part : {"\n// Number of Bone Poses\n3\n\n// Bone Pose 0: Neutral\n",
                                 "\n\n// Bone Pose 1: Eat\n", "\n\n// Bone Pose 2: E"})
          EXPECT_NE(text.find(part), std::string::npos) << part;
      }
      for (const test::Shown& shown : host.shown)
        EXPECT_NE(shown.kind, "error") << shown.text;
    }
  }
}

}  // namespace
}  // namespace lipvane::plugin
