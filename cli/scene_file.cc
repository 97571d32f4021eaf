#include "cli/scene_file.h"

#include <cstddef>

#include "cli/messages.h"

namespace lipvane::cli {

std::optional<standalone::Scene> OpenScene(const std::string& fileName, Progress& progress) {
  std::optional<standalone::Scene> scene;
  try {
    scene = standalone::Scene::Open(fileName, [&](std::size_t done, std::size_t total) {
      progress.Show("Opening", done, total);
    });
  } catch (const standalone::SceneError& error) {
    progress.Erase();
    PrintError(error.what());
    return std::nullopt;
  }
  progress.Erase();
  for (const std::string& note : scene->ReadingNotes())
    PrintWarning(note);
  return scene;
}

}  // namespace lipvane::cli
