#include "tests/support/embedded_scene.h"

#include <sstream>

namespace lipvane::test {

Shown AsShown(const standalone::Message& message) {
  using Kind = standalone::Message::Kind;
  switch (message.kind) {
    case Kind::kError:
      return {"error", message.text, ""};
    case Kind::kWarning:
      return {"warning", message.text, ""};
    case Kind::kDiagnostic:
      return {"diagnostic", message.text, message.label};
    case Kind::kBox:
      return {"box", message.text, message.title};
    case Kind::kNote:
      return {"note", message.text, ""};
  }
  return {};
}

std::map<std::string, std::map<double, double>> CurvesOf(const standalone::Scene& scene) {
  std::map<std::string, std::map<double, double>> curves;
  for (const auto& driven : scene.DrivenChannels()) {
    auto& keys = curves[scene.FullPath(scene.FirstPath(driven.node)) + "." +
                        standalone::ChannelName(driven.channel)];
    for (const standalone::CurveKey& key : driven.curve->keys)
      keys[key.time] = key.value;
  }
  return curves;
}

std::string Written(const standalone::Scene& scene) {
  std::ostringstream out;
  scene.Write(out);
  return out.str();
}

std::vector<std::string> SelectionOf(const standalone::StandaloneHost& host) {
  std::vector<std::string> paths;
  for (const standalone::PathId path : host.Selection())
    paths.push_back(host.GetScene().FullPath(path));
  return paths;
}

}  // namespace lipvane::test
