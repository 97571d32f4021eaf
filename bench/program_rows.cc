#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <stdexcept>
#include <string>

#include "bench/rows.h"

namespace lipvane::bench {
namespace {

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
  return {{"start of lipvane --version to /bin/true", Ratio::kTime, 5.0, 3.0, Starting}};
}

}  // namespace lipvane::bench
