#include "lipvane/host/standalone/interpreter.h"
#include "lipvane/host/standalone/scene.h"
#include "lipvane/plugin/registration.h"
#include "tests/contract/host_under_test.h"

namespace lipvane::test {
namespace {

using standalone::Message;

Shown AsShown(const Message& message) {
  switch (message.kind) {
    case Message::Kind::kError:
      return {"error", message.text, ""};
    case Message::Kind::kWarning:
      return {"warning", message.text, ""};
    case Message::Kind::kDiagnostic:
      return {"diagnostic", message.text, message.label};
    case Message::Kind::kBox:
      return {"box", message.text, message.title};
  }
  return {};
}

class EmbeddedHostUnderTest : public HostUnderTest {
 public:
  explicit EmbeddedHostUnderTest(const SceneDescription& scene)
      : scene_(standalone::Scene::Parse(MayaAscii(scene), "described.ma")),
        interpreter_(scene_, [this](const Message& m) { shown_.push_back(AsShown(m)); }) {
    plugin::InitializePlugin(interpreter_);
  }

  bool Run(const std::string& command, const std::vector<std::string>& words) override {
    std::vector<std::string> line = {command};
    line.insert(line.end(), words.begin(), words.end());
    return interpreter_.Run(line).status.ok();
  }
  std::vector<std::string> Commands() const override {
    std::vector<std::string> names;
    for (const std::string& name : interpreter_.CommandNames()) {
      if (name != "select" && name != "currentTime") names.push_back(name);
    }
    return names;
  }
  std::vector<Shown> AllShown() const override { return shown_; }
  std::vector<std::string> Selection() const override {
    std::vector<std::string> paths;
    for (const standalone::PathId path : interpreter_.GetHost().Selection()) {
      paths.push_back(scene_.FullPath(path));
    }
    return paths;
  }
  double CurrentTime() const override { return interpreter_.GetHost().CurrentTime(); }
  std::map<std::string, std::map<double, double>> Curves() const override {
    std::map<std::string, std::map<double, double>> curves;
    for (const auto& driven : scene_.DrivenChannels()) {
      auto& keys = curves[scene_.FullPath(scene_.FirstPath(driven.node)) + "." +
                          standalone::ChannelName(driven.channel)];
      for (const standalone::CurveKey& key : driven.curve->keys)
        keys[key.time] = key.value;
    }
    return curves;
  }

 private:
  std::vector<Shown> shown_;
  standalone::Scene scene_;
  standalone::Interpreter interpreter_;
};

}  // namespace

HostMaker EmbeddedHostMaker() {
  return {"Embedded", [](const SceneDescription& scene) {
            return std::make_unique<EmbeddedHostUnderTest>(scene);
          }};
}

}  // namespace lipvane::test
