#include "lipvane/host/standalone/interpreter.h"
#include "lipvane/host/standalone/scene.h"
#include "lipvane/plugin/registration.h"
#include "tests/contract/contract.h"
#include "tests/support/embedded_scene.h"

namespace lipvane::test {
namespace {

class EmbeddedHostUnderTest : public HostUnderTest {
 public:
  explicit EmbeddedHostUnderTest(const SceneDescription& scene)
      : scene_(standalone::Scene::Parse(MayaAscii(scene), "described.ma")),
        interpreter_(scene_, [this](const standalone::Message& m) {
          // Notes are this host's own.
          if (m.kind != standalone::Message::Kind::kNote) shown_.push_back(AsShown(m));
        }) {
    plugin::InitializePlugin(interpreter_);
  }

  bool Run(const std::string& command, const std::vector<std::string>& words) override {
    std::vector<std::string> line = {command};
    line.insert(line.end(), words.begin(), words.end());
    return interpreter_.Run(line).status.ok();
  }
  std::vector<Shown> AllShown() const override { return shown_; }
  std::vector<std::string> Selection() const override {
    return SelectionOf(interpreter_.GetHost());
  }
  double CurrentTime() const override { return interpreter_.GetHost().CurrentTime(); }
  std::map<std::string, std::map<double, double>> Curves() const override {
    return CurvesOf(scene_);
  }

 private:
  std::vector<Shown> shown_;
  standalone::Scene scene_;
  standalone::Interpreter interpreter_;
};

INSTANTIATE_TEST_SUITE_P(Embedded, Contract, testing::Values(&MakeHost<EmbeddedHostUnderTest>));

}  // namespace
}  // namespace lipvane::test
