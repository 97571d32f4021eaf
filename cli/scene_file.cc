#include "cli/scene_file.h"

#include <cstddef>
#include <ostream>

#include "cli/messages.h"
#include "cli/output.h"

namespace lipvane::cli {

std::optional<standalone::Scene> OpenScene(const std::string& fileName, Progress& progress,
                                           std::string& problem) {
  std::optional<standalone::Scene> scene;
  try {
    scene = standalone::Scene::Open(fileName, [&](std::size_t done, std::size_t total) {
      progress.Show("Opening", done, total);
    });
  } catch (const standalone::SceneError& error) {
    progress.Erase();
    problem = error.what();
    PrintError(problem);
    return std::nullopt;
  }
  progress.Erase();
  for (const std::string& note : scene->ReadingNotes())
    PrintWarning(note);
  return scene;
}

std::optional<standalone::Scene> OpenScene(const std::string& fileName, Progress& progress) {
  std::string unused;
  return OpenScene(fileName, progress, unused);
}

bool SaveScene(const standalone::Scene& scene, const std::string& fileName) {
  try {
    return WriteOutput(fileName, [&](std::ostream& out) { scene.Write(out); });
  } catch (const standalone::SceneError& error) {
    PrintError(fileName + ": " + error.what());
    return false;
  }
}

}  // namespace lipvane::cli
