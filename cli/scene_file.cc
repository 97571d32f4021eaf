#include "cli/scene_file.h"

#include <cstddef>
#include <ostream>
#include <utility>
#include <vector>

#include "cli/messages.h"
#include "cli/output.h"
#include "cli/terminal.h"
#include "lipvane/check/namespace_hint.h"
#include "lipvane/host/standalone/namespaces.h"
#include "lipvane/text/printable.h"

namespace lipvane::cli {

namespace {

std::optional<standalone::Scene> Parse(InputFile file, Progress& progress, std::string& problem) {
  std::optional<standalone::Scene> scene;
  try {
    scene = standalone::Scene::Parse(
        std::move(file.text), file.name,
        [&](std::size_t done, std::size_t total) { progress.Show("Opening", done, total); });
  } catch (const standalone::SceneError& error) {
    problem = error.what();
  }
  progress.Erase();
  if (!scene) return scene;
  for (const std::string& note : scene->ReadingNotes())
    PrintWarning(note);
  return scene;
}

}  // namespace

std::optional<standalone::Scene> OpenScene(InputFile file, Progress& progress) {
  std::string problem;
  auto scene = Parse(std::move(file), progress, problem);
  if (!scene) PrintError(problem);
  return scene;
}

std::optional<standalone::Scene> OpenScene(const std::string& fileName, const std::string& option,
                                           Progress& progress, std::string& problem) {
  std::vector<InputFile> read(1);
  if (!ReadInput(fileName, read.front(), problem)) {
    problem = ReadProblem{0, problem}.Text(read.front().name);
  } else if (const auto misplaced = Misplaced({{fileName, FileFormat::kScene, option}}, read);
             !misplaced.empty()) {
    problem = misplaced.front();
  } else if (auto scene = Parse(std::move(read.front()), progress, problem)) {
    return scene;
  }
  PrintError(problem);
  return std::nullopt;
}

bool HasNamespace(const standalone::Scene& scene, const std::string& sceneName,
                  const std::string& nameSpace) {
  constexpr std::size_t kMostNamed = 10;
  const auto there = standalone::NamespacesOf(scene);
  if (nameSpace.empty() || there.count(nameSpace) > 0) return true;
  const std::string hint = check::ReferencesHint(scene);
  std::string list;
  std::size_t named = 0;
  for (auto one = there.begin(); one != there.end() && named < kMostNamed; ++one, ++named)
    list += (named > 0 ? ", " : "; it has ") + text::QuotedLine(*one);
  PrintError(sceneName + ": there is no namespace " + text::QuotedLine(nameSpace) +
             (there.empty() ? "; no name in it has one" : list) +
             (there.size() > kMostNamed ? " and more" : "") + (hint.empty() ? "" : "; " + hint));
  return false;
}

bool SaveScene(const standalone::Scene& scene, const std::string& fileName, Progress& progress) {
  const bool showsProgress = fileName != kStandardOutput || !IsTerminal(Stream::kOutput);
  try {
    return WriteOutput(fileName, [&](std::ostream& out) {
      scene.Write(out, [&](std::size_t done, std::size_t total) {
        if (showsProgress) progress.Show("Saving", done, total);
      });
      progress.Erase();
    });
  } catch (const standalone::SceneError& error) {
    progress.Erase();
    PrintError(fileName + ": " + error.what());
    return false;
  }
}

}  // namespace lipvane::cli
