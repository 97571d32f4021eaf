#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include "cli/bake.h"
#include "lipvane/host/standalone/key_script.h"
#include "lipvane/host/standalone/scene.h"
#include "lipvane/speech/wav_header.h"

/// What comes of a bake beside the keys themselves.
namespace lipvane::cli {

/// Whether an output of that name is the keys alone, as a script.
bool IsKeyScript(const std::string& output);

/// The joints of a bake with their six posed channels. Two bones may mean one joint.
class KeyedJoints {
 public:
  void Add(standalone::NodeId joint, const std::vector<double>& frames);
  const std::vector<standalone::KeyedNode>& Nodes() const { return nodes_; }

 private:
  std::vector<standalone::KeyedNode> nodes_;
  std::unordered_map<standalone::NodeId, std::size_t> places_;
};

/// Writes the keys as a script, whole or not at all; `nameSpace` comes before the names of nodes.
/// False, after saying so, when it could not be
/// written.
bool SaveKeyScript(const standalone::Scene& scene, const BakeOptions& options,
                   const std::vector<standalone::KeyedNode>& keyed, const std::string& nameSpace);

/// Widens the scene's playback range to hold all keyed frames, and says so.
void ShowAllOf(const std::vector<standalone::KeyedNode>& keyed, standalone::Scene& scene);

/// Reads how long a sound is. False, after saying why, when it is none that a scene plays.
bool ReadSound(const std::string& fileName, speech::WavHeader& header);
/// Puts the sound onto the scene's time line; says so when it was there already.
void AddSound(const BakeOptions& options, const speech::WavHeader& header,
              standalone::Scene& scene);

}  // namespace lipvane::cli
