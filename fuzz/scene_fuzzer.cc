#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>

#include "fuzz/expect.h"
#include "lipvane/host/standalone/scene.h"

using lipvane::standalone::Channel;
using lipvane::standalone::Scene;
using lipvane::standalone::SceneError;

namespace {

std::string Written(const Scene& scene) {
  std::ostringstream out;
  scene.Write(out);
  return out.str();
}

void Visit(Scene& scene, const std::string& text) {
  Expect(Written(scene) == text);
  for (lipvane::standalone::PathId path = 0; path < scene.PathCount(); ++path) {
    (void)scene.FullPath(path);
    (void)scene.ShortestName(path);
  }
  for (lipvane::standalone::NodeId node = 0; node < scene.NodeCount(); ++node) {
    (void)scene.ValuesAt(node, 10.0);
    if (scene.IsInFile(node) && scene.AttachCurve(node, Channel::kRotateX)) {
      scene.SetKey(node, Channel::kRotateX, 10.0, 0.5);
    }
  }
  scene.ExtendPlaybackRange(-5.5, 1e6);
  scene.AddSound({"a \\\"b\".wav", 1.0, 24.0});
  // What was keyed and saved is a scene again, with the same nodes.
  const Scene again = Scene::Parse(Written(scene), "saved.ma");
  Expect(again.NodeCount() == scene.NodeCount());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  try {
    Scene scene = Scene::Parse(text, "fuzz.ma");
    try {
      Visit(scene, text);
    } catch (const SceneError&) {
      Expect(false);  // only reading may refuse
    }
  } catch (const SceneError& error) {
    Expect(std::string(error.what()).rfind("fuzz.ma", 0) == 0);
  }
  return 0;
}
