#include "tests/support/process.h"

#include <sys/wait.h>

#include <cstdlib>

#include "tests/support/temporary_folder.h"

namespace lipvane::test {
namespace {

/// As one word to the shell.
std::string Quoted(const std::string& word) {
  std::string quoted = "'";
  for (const char c : word)
    quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "' ";
}

}  // namespace

std::string CommandLine(const std::string& program, const std::vector<std::string>& arguments) {
  std::string line = Quoted(program);
  for (const std::string& argument : arguments)
    line += Quoted(argument);
  return line;
}

ProcessResult RunProcess(const std::string& program, const std::vector<std::string>& arguments) {
  // Files rather than pipes: nothing has to be read while the program runs.
  const TemporaryFolder folder;
  // What scripts/memcheck runs the program under.
  const char* const runner = std::getenv("LIPVANE_RUN_UNDER");
  const std::string line = (runner != nullptr ? Quoted(runner) : "") +
                           CommandLine(program, arguments) + "</dev/null >" +
                           Quoted(folder.Path("out")) + "2>" + Quoted(folder.Path("err"));
  const int state = std::system(line.c_str());
  return {WIFEXITED(state) ? WEXITSTATUS(state) : -1, folder.Content("out"), folder.Content("err")};
}

}  // namespace lipvane::test
