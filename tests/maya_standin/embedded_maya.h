#pragma once

#include <string>
#include <vector>

#include "lipvane/host/standalone/scene.h"
#include "lipvane/host/standalone/standalone_host.h"
#include "tests/maya_standin/plugin_file.h"
#include "tests/maya_standin/standin.h"
#include "tests/maya_standin/standin_scene.h"
#include "tests/support/recording_host.h"

namespace lipvane::test {

/// Maya as far as the stand-in goes, with the embedded scene open and the plug-in file loaded.
class EmbeddedMaya {
 public:
  /// The scene must outlive this.
  explicit EmbeddedMaya(standalone::Scene& scene);
  EmbeddedMaya(const EmbeddedMaya&) = delete;
  EmbeddedMaya& operator=(const EmbeddedMaya&) = delete;
  ~EmbeddedMaya();

  /// Runs a registered command; true when it succeeded.
  bool Run(const std::string& command, const std::vector<std::string>& words);

  std::vector<Shown> shown;
  standalone::StandaloneHost host;
  EmbeddedStandinScene standinScene{host};
  Standin standin{standinScene};

 private:
  PluginFile file_;
};

}  // namespace lipvane::test
