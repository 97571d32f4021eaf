#include "lipvane/plugin/export_poses_command.h"
#include "lipvane/plugin/facial_anim_command.h"
#include "tests/contract/contract.h"

namespace lipvane::test {
namespace {

class RecordingHostUnderTest : public HostUnderTest {
 public:
  explicit RecordingHostUnderTest(const SceneDescription& scene) : host_(scene) {}

  bool Run(const std::string& command, const std::vector<std::string>& words) override {
    const bool ok = command == "facialAnim"
                        ? plugin::FacialAnimCommand(host_).DoIt(Words(words)).ok()
                        : plugin::ExportPosesCommand(host_).DoIt(Words(words)).ok();
    for (const std::string& line : host_.lostKeys.Lines())
      host_.DisplayWarning(line);
    return ok;
  }
  std::vector<Shown> AllShown() const override { return host_.shown; }
  std::vector<std::string> Selection() const override { return host_.selection; }
  double CurrentTime() const override { return host_.currentTime; }
  std::map<std::string, std::map<double, double>> Curves() const override { return host_.curves; }

 private:
  RecordingHost host_;
};

INSTANTIATE_TEST_SUITE_P(Recording, Contract, testing::Values(&MakeHost<RecordingHostUnderTest>));

}  // namespace
}  // namespace lipvane::test
