#pragma once

#include <maya/MSyntax.h>

#include <map>
#include <set>
#include <string>
#include <vector>

#include "tests/maya_standin/standin_scene.h"

namespace lipvane::test {

/// The host as a plug-in meets it. Its API is one of static functions, so there is one at a time.
class Standin {
 public:
  explicit Standin(StandinScene& scene);
  Standin(const Standin&) = delete;
  Standin& operator=(const Standin&) = delete;
  ~Standin();

  static Standin& Current();

  /// Runs a registered command with its words, as the host does; true when it succeeded. Whatever
  /// it throws comes out.
  bool Run(const std::string& command, const std::vector<std::string>& words);

  StandinScene& scene;
  bool isBatch = false;
  /// Commands whose lines fail.
  std::set<std::string> refusedLines;
  /// Commands that cannot be registered.
  std::set<std::string> refused;

  struct CommandClass {
    void* (*creator)();
    MSyntax (*syntax)();
  };
  std::map<std::string, CommandClass> commands;
  /// What the plug-in was opened as and asked for while it was loaded and unloaded.
  std::vector<std::string> registrations;
  /// What the host was asked to print.
  std::vector<std::string> lines;
};

}  // namespace lipvane::test
