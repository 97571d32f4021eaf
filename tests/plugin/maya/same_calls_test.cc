// The plug-in file makes the host's calls that the commands make, one for one and in their order,
// and does the same when any of them fails.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <fstream>

#include "lipvane/plugin/export_poses_command.h"
#include "lipvane/plugin/facial_anim_command.h"
#include "tests/maya_standin/plugin_file.h"
#include "tests/maya_standin/standin.h"
#include "tests/support/lbp_text.h"
#include "tests/support/recording_host.h"
#include "tests/support/temporary_folder.h"

namespace lipvane::test {
namespace {

using Texts = std::vector<std::string>;

SceneDescription Rig() {
  NodeDescription head, jaw, twin, skin;
  head.path = "|head";
  head.orient = {10, 20, 30};
  jaw.path = "|head|jaw";
  jaw.frames[0] = {{1, 2, 3}, {0, 0, 0}};
  jaw.frames[10] = {{1, -2.5, 3}, {30, -15, 5}};
  twin.path = "|jaw";
  skin.type = "mesh";
  skin.path = "|head|skin";
  return {head, jaw, skin, twin};
}

struct Invocation {
  std::string command;
  Texts words;
};

void PrintTo(const Invocation& invocation, std::ostream* out) {
  *out << invocation.command;
}

/// All that an invocation did.
struct Outcome {
  bool ok = false;
  Texts calls;
  std::vector<Shown> shown;
  Texts selection;
  double time = 0.0;
  std::map<std::string, std::map<double, double>> curves;
  std::string file;
  std::ptrdiff_t refusals = 0;
};

class SameCalls : public testing::TestWithParam<Invocation> {
 protected:
  bool RunDirectly(RecordingHost& host) {
    const Words words(ParamWords());
    return GetParam().command == "facialAnim" ? plugin::FacialAnimCommand(host).DoIt(words).ok()
                                              : plugin::ExportPosesCommand(host).DoIt(words).ok();
  }

  bool RunThroughFile(RecordingHost& host) {
    RecordingStandinScene scene(host);
    Standin standin(scene);
    const PluginFile file(LIPVANE_PLUGIN_FILE);
    file.Initialize();
    const bool ok = standin.Run(GetParam().command, ParamWords());
    file.Uninitialize();
    return ok;
  }

  template <class Run>
  Outcome OutcomeOf(std::size_t failing, Run run) {
    RecordingHost host(Rig());
    host.FailCall(failing);
    std::ofstream(folder_.Path("given.lbp"))
        << LbpText({"head", "jaw"}, {{{}, {{1, 2, 3}, {0.6, 0.8, 0, 0}}}, {{}, {}}});
    std::remove(folder_.Path("written.lbp").c_str());
    Outcome outcome;
    outcome.ok = run(host);
    outcome.calls = host.Calls();
    outcome.shown = host.shown;
    outcome.selection = host.selection;
    outcome.time = host.currentTime;
    outcome.curves = host.curves;
    outcome.file = FileContent(folder_.Path("written.lbp"));
    // Keys that get lost since the host makes no curve are the binding's to warn of.
    outcome.calls.erase(std::remove(outcome.calls.begin(), outcome.calls.end(), "DisplayWarning"),
                        outcome.calls.end());
    const auto refusals =
        std::remove_if(outcome.shown.begin(), outcome.shown.end(), [](const Shown& message) {
          return message.text.find(" refused by the host") != std::string::npos ||
                 message.text.find(" of 2 bones") != std::string::npos;
        });
    outcome.refusals = std::distance(refusals, outcome.shown.end());
    outcome.shown.erase(refusals, outcome.shown.end());
    return outcome;
  }

 private:
  Texts ParamWords() {
    Texts words = GetParam().words;
    for (std::string& word : words) {
      if (word.find(".lbp") != std::string::npos) word = folder_.Path(word);
    }
    return words;
  }

  TemporaryFolder folder_;
};

TEST_P(SameCalls, WhicheverFails) {
  std::size_t calls = 1;
  std::ptrdiff_t refusals = 0;
  for (std::size_t failing = 0; failing <= calls; ++failing) {
    const Outcome direct = OutcomeOf(failing, [&](RecordingHost& host) {
      const bool ok = RunDirectly(host);
      calls = host.CallsThatCanFail();
      return ok;
    });
    const Outcome through =
        OutcomeOf(failing, [this](RecordingHost& host) { return RunThroughFile(host); });
    EXPECT_EQ(through.ok, direct.ok) << failing;
    EXPECT_EQ(through.calls, direct.calls) << failing;
    EXPECT_EQ(through.shown, direct.shown) << failing;
    EXPECT_EQ(through.selection, direct.selection) << failing;
    EXPECT_EQ(through.time, direct.time) << failing;
    EXPECT_EQ(through.curves, direct.curves) << failing;
    EXPECT_EQ(through.file, direct.file) << failing;
    refusals += through.refusals;
  }
  // One for each curve of the two keyed joints that poses have keys for.
  const Texts& words = GetParam().words;
  EXPECT_EQ(refusals, std::count(words.begin(), words.end(), "-import") * 2 * 6);
  EXPECT_GT(calls, 20u);
}

INSTANTIATE_TEST_SUITE_P(Commands, SameCalls,
                         testing::Values(Invocation{"facialAnim", {"-import", "-lbp", "given.lbp"}},
                                         Invocation{"facialAnim",
                                                    {"-select", "-exp", "a", "-lbp", "given.lbp"}},
                                         Invocation{"demBonesExportPoses",
                                                    {"-bl", "jaw nobody skin", "-hb", "head",
                                                     "-lbp", "written.lbp", "-np", "2"}}),
                         [](const auto& invocation) {
                           return std::string(1, invocation.param.command[0]) +
                                  std::to_string(invocation.index);
                         });

}  // namespace
}  // namespace lipvane::test
