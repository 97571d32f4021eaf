#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <memory>
#include <stdexcept>
#include <string>

#include "bench/mesh_scene.h"
#include "bench/naive/line_feeds.h"
#include "bench/rows.h"
#include "lipvane/host/standalone/scene.h"
#include "tests/support/temporary_folder.h"

namespace lipvane::bench {
namespace {

constexpr std::size_t kSceneBytes = 100'000'000;

Contenders Opening() {
  const auto folder = std::make_shared<test::TemporaryFolder>();
  const std::string name = folder->Path("meshes.ma");
  WriteMeshScene(name, kSceneBytes);
  return {{"open scene",
           [folder, name] { benchmark::DoNotOptimize(standalone::Scene::Open(name).NodeCount()); }},
          {"count line feeds",
           [folder, name] { benchmark::DoNotOptimize(naive::CountLineFeeds(name)); }}};
}

/// Runs a program to its end, its output thrown away.
void Run(std::string program, std::string argument) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  std::array<char*, 3> arguments = {program.data(), argument.data(), nullptr};
  pid_t process = 0;
  const int error =
      posix_spawn(&process, program.c_str(), &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  int status = 0;
  if (error != 0 || waitpid(process, &status, 0) != process || status != 0) {
    throw std::runtime_error(program + ": it did not run");
  }
}

Contenders Starting() {
  return {{"lipvane --version", [] { Run(LIPVANE_BINARY, "--version"); }},
          {"/bin/true", [] { Run("/bin/true", "--"); }}};
}

}  // namespace

std::vector<Row> ProgramRows() {
  return {
      {"scene of 100 MB, open to read and count", Ratio::kTime, 4.0, 2.0, Opening},
      {"start of lipvane --version to /bin/true", Ratio::kTime, 5.0, 3.0, Starting},
  };
}

}  // namespace lipvane::bench
