#pragma once

#include <string>
#include <vector>

namespace lipvane::test {

struct ProcessResult {
  int status =
      -1;  ///< the exit status; above 2 when the program did not run or did not end by itself
  std::string out;
  std::string err;
};

/// What starts a program from a shell.
std::string CommandLine(const std::string& program, const std::vector<std::string>& arguments);

/// Runs a program to its end with an empty standard input.
ProcessResult RunProcess(const std::string& program, const std::vector<std::string>& arguments);

}  // namespace lipvane::test
