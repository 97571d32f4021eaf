#include "lipvane/host/standalone/scene.h"
#include "tests/contract/contract.h"
#include "tests/maya_standin/embedded_maya.h"
#include "tests/support/embedded_scene.h"

namespace lipvane::test {
namespace {

class PluginFileUnderTest : public HostUnderTest {
 public:
  explicit PluginFileUnderTest(const SceneDescription& scene)
      : scene_(standalone::Scene::Parse(MayaAscii(scene), "described.ma")), maya_(scene_) {
    for (const NodeDescription& node : scene) {
      for (const auto& [channel, types] : node.between)
        maya_.standinScene.between[node.path + "." + channel] = types;
    }
  }

  bool Run(const std::string& command, const std::vector<std::string>& words) override {
    return maya_.Run(command, words);
  }
  std::vector<Shown> AllShown() const override { return maya_.shown; }
  std::vector<std::string> Selection() const override { return SelectionOf(maya_.host); }
  double CurrentTime() const override { return maya_.host.CurrentTime(); }
  std::map<std::string, std::map<double, double>> Curves() const override {
    return CurvesOf(scene_);
  }
  bool KeysThroughConversions() const override { return false; }

 private:
  standalone::Scene scene_;
  EmbeddedMaya maya_;
};

// The file that users load, in the stand-in of the host's API.
INSTANTIATE_TEST_SUITE_P(PluginFile, Contract, testing::Values(&MakeHost<PluginFileUnderTest>));

}  // namespace
}  // namespace lipvane::test
