// Both commands and the scene below them, of whose allocations each fails in turn.

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "lipvane/host/standalone/interpreter.h"
#include "lipvane/plugin/export_poses_command.h"
#include "lipvane/plugin/facial_anim_command.h"
#include "lipvane/plugin/registration.h"
#include "tests/support/allocations.h"
#include "tests/support/embedded_scene.h"
#include "tests/support/lbp_text.h"
#include "tests/support/temporary_folder.h"

namespace lipvane::test {
namespace {

using standalone::Scene;
using Texts = std::vector<std::string>;

/// Long names, so that none fits into a string itself.
SceneDescription Description() {
  NodeDescription head, jaw, lip;
  head.path = "|the_head_of_the_rig";
  jaw.path = head.path + "|the_jaw_of_the_rig";
  jaw.frames[0] = {};
  jaw.frames[7] = {{1, 2, 3}, {4, 5, 6}};
  lip.path = head.path + "|the_lip_of_the_rig";
  lip.drivers = {{"rotateX", "something_that_drives_it"}};
  return {head, jaw, lip};
}

/// With one curve on two channels, and a file that is not read.
Scene MakeScene() {
  return Scene::Parse(MayaAscii(Description()) +
                          "connectAttr \"the_jaw_of_the_rig2_tx.o\" \"the_lip_of_the_rig.ty\";\n"
                          "file -r -ns \"other\" -rfn \"otherRN\" \"another_scene_file.ma\";\n",
                      "described.ma");
}

using Curves = std::map<std::string, std::map<double, double>>;

/// Those that a file shows: a curve without keys is not written.
Curves KeyedCurvesOf(const Scene& scene) {
  Curves curves = CurvesOf(scene);
  for (auto curve = curves.begin(); curve != curves.end();)
    curve = curve->second.empty() ? curves.erase(curve) : std::next(curve);
  return curves;
}

/// What a command left behind.
struct Result {
  Curves curves;
  Texts selection;
  std::string file;
};

class CommandFailure : public testing::Test {
 protected:
  CommandFailure() {
    const std::vector<BoneLine> pose(3, BoneLine{{1, 2, 3}, {1, 0, 0, 0}});
    lbp_ = folder_.Make(
        "the given file.lbp",
        LbpText({"nobody_at_all", "the_jaw_of_the_rig", "the_lip_of_the_rig"}, {pose, pose}));
  }

  /// Every mode of both commands, and the host's own ones.
  std::vector<Texts> Lines() const {
    const Texts exported = {"demBonesExportPoses",
                            "-bones",
                            "the_jaw_of_the_rig the_lip_of_the_rig nobody_at_all",
                            "-hb",
                            "the_head_of_the_rig",
                            "-np",
                            "2",
                            "-lbp",
                            folder_.Path("written.lbp")};
    Texts mapped = exported;
    mapped.insert(mapped.end(), {"-map", lbp_});
    return {exported,
            mapped,
            {"facialAnim", "-import", "-lbp", lbp_},
            {"facialAnim", "-select", "-lbp", lbp_},
            {"facialAnim", "-m", "-exp", "an_expression_of_long_name", "-ltf", "a_line_of_it.ltf"},
            {"select", "the_jaw_of_the_rig", "*_lip_*"},
            {"currentTime", "5"}};
  }
  std::string File() const { return folder_.Content("written.lbp"); }
  /// No temporary stays, and the file is the old one or a whole one.
  void ExpectWholeFileAndRemoveIt(const Result& whole) const {
    EXPECT_EQ(folder_.Names().size(), 2u);
    EXPECT_TRUE(File() == "old" || File() == whole.file) << File();
    std::filesystem::remove(folder_.Path("written.lbp"));  // to replace it later takes long
  }

  TemporaryFolder folder_;
  std::string lbp_;
};

TEST_F(CommandFailure, InTheEmbeddedHostIsSaidAndTheNextRunIsWhole) {
  for (const Texts& line : Lines()) {
    std::optional<Result> whole;
    ForEachAllocation([&](Shortage& shortage) {
      folder_.Make("written.lbp", "old");
      Scene scene = MakeScene();
      std::optional<standalone::Interpreter> interpreter(std::in_place, scene, nullptr);
      plugin::InitializePlugin(*interpreter);
      const auto result = [&] {
        return Result{KeyedCurvesOf(scene), SelectionOf(interpreter->GetHost()), File()};
      };
      standalone::CommandOutcome outcome;
      const bool isDone = shortage.Do([&] { outcome = interpreter->Run(line); });
      if (!whole) whole = result();  // the first try of all
      if (isDone && !outcome.Failed()) {
        EXPECT_EQ(result().curves, whole->curves);
        EXPECT_EQ(result().selection, whole->selection);
        EXPECT_EQ(result().file, whole->file);
      }
      ExpectWholeFileAndRemoveIt(*whole);
      // What has come into the scene goes into the file, be it little.
      const auto expectWritten = [&] {
        EXPECT_EQ(KeyedCurvesOf(Scene::Parse(Written(scene), "again.ma")), KeyedCurvesOf(scene));
      };
      expectWritten();
      EXPECT_FALSE(interpreter->Run({"select", "-add", "*"}).Failed());
      EXPECT_EQ(SelectionOf(interpreter->GetHost()).size(), 3u + 8u);  // and the default cameras
      EXPECT_FALSE(interpreter->Run({"select", "-cl"}).Failed());
      if (line[0] != "demBonesExportPoses") folder_.Make("written.lbp", "old");
      EXPECT_FALSE(interpreter->Run(line).Failed());
      EXPECT_EQ(result().curves, whole->curves);
      EXPECT_EQ(result().selection, whole->selection);
      EXPECT_EQ(result().file, whole->file);
      expectWritten();
    });
    if (HasFailure()) FAIL() << testing::PrintToString(line);
  }
}

TEST(SceneFailure, LeavesNoHalfAnswerToWhoSharesACurve) {
  ForEachAllocation([](Shortage& shortage) {
    const Scene scene = MakeScene();
    const auto sharers = [&] {
      std::size_t count = 0;
      for (standalone::NodeId node = 0; node < scene.NodeCount(); ++node)
        count += scene.SharersOf(node, standalone::Channel::kTranslateX).size() +
                 scene.SharersOf(node, standalone::Channel::kTranslateY).size();
      return count;
    };
    shortage.Do(sharers);
    EXPECT_EQ(sharers(), 2u);
  });
}

// A host of plain values: what it throws itself goes through the commands as well.
TEST_F(CommandFailure, InAnyHostComesOutAndTheNextRunIsWhole) {
  for (const Texts& line : Lines()) {
    const bool isExport = line[0] == "demBonesExportPoses";
    if (!isExport && line[0] != "facialAnim") continue;
    const auto create =
        isExport ? &plugin::ExportPosesCommand::Create : &plugin::FacialAnimCommand::Create;
    const Words words({line.begin() + 1, line.end()});
    std::optional<Result> whole;
    ForEachAllocation([&](Shortage& shortage) {
      folder_.Make("written.lbp", "old");
      RecordingHost host(Description());
      bool isMade = true;
      const bool isDone = shortage.Do([&] {
        const auto command = create(host);
        isMade = command != nullptr && command->DoIt(words).ok();
      });
      if (!whole) whole = {host.curves, host.selection, File()};
      if (isDone && isMade && host.shown.empty()) {
        EXPECT_EQ(host.curves, whole->curves);
        EXPECT_EQ(File(), whole->file);
      }
      ExpectWholeFileAndRemoveIt(*whole);
      host.selection.clear();
      if (!isExport) folder_.Make("written.lbp", "old");
      EXPECT_TRUE(create(host)->DoIt(words).ok());
      EXPECT_EQ(host.curves, whole->curves);
      EXPECT_EQ(host.selection, whole->selection);
      EXPECT_EQ(File(), whole->file);
    });
    if (HasFailure()) FAIL() << testing::PrintToString(line);
  }
}

}  // namespace
}  // namespace lipvane::test
