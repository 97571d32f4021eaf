#include "tests/support/process.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "tests/support/temporary_folder.h"

namespace lipvane::test {

ProcessResult RunProcess(const std::string& program, const std::vector<std::string>& arguments) {
  // Files rather than pipes: nothing has to be read while the program runs.
  const TemporaryFolder folder;
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  constexpr int kWrite = O_WRONLY | O_CREAT;
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, folder.Path("out").c_str(), kWrite,
                                   0600);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, folder.Path("err").c_str(), kWrite,
                                   0600);

  std::vector<std::string> words = {program};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> pointers;
  pointers.reserve(words.size() + 1);
  for (std::string& word : words)
    pointers.push_back(word.data());
  pointers.push_back(nullptr);
  pid_t process = 0;
  const int error =
      posix_spawn(&process, program.c_str(), &actions, nullptr, pointers.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) throw std::system_error(error, std::generic_category(), program);

  int state = 0;
  while (waitpid(process, &state, 0) < 0 && errno == EINTR) {
  }
  return {WIFEXITED(state) ? WEXITSTATUS(state) : -1, folder.Content("out"), folder.Content("err")};
}

}  // namespace lipvane::test
