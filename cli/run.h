#pragma once

#include <string>
#include <vector>

namespace lipvane::cli {

/// One text of command lines of a run.
struct Script {
  bool isFile = false;
  std::string text;  ///< the command lines, or the name of the file that holds them
  std::string name;  ///< what messages call it: "-e 2", or the file
};

struct RunOptions {
  std::string scene;
  std::vector<Script> scripts;  ///< in the order in which they run
  std::string nameSpace;        ///< that commands look for bones in; "" for the root
  std::string output;           ///< where the scene is saved; "" for nowhere
  std::string report;           ///< where the report goes: "-" is standard output, "" nowhere
};

/// Opens a scene, runs command lines on it, saves it. Returns the exit status.
int Run(const RunOptions& options);

}  // namespace lipvane::cli
