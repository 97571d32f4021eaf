#include "tests/maya_standin/embedded_maya.h"

#include "tests/support/embedded_scene.h"

namespace lipvane::test {

EmbeddedMaya::EmbeddedMaya(standalone::Scene& scene)
    : host(scene, [this](const standalone::Message& m) { shown.push_back(AsShown(m)); }),
      file_(LIPVANE_PLUGIN_FILE) {
  file_.Initialize();
}

EmbeddedMaya::~EmbeddedMaya() {
  file_.Uninitialize();
}

bool EmbeddedMaya::Run(const std::string& command, const std::vector<std::string>& words) {
  host.BeginCommand();
  return standin.Run(command, words);
}

}  // namespace lipvane::test
