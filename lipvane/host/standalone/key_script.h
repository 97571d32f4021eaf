#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "lipvane/host/standalone/scene.h"

namespace lipvane::standalone {

/// Keys that a node of a scene has: on each of the channels at each of the frames.
struct KeyedNode {
  NodeId node = 0;
  std::vector<Channel> channels;
  std::vector<double> frames;  ///< ascending
};

/// What a script of keys says of itself, and how it names nodes.
struct KeyScriptOptions {
  std::string source;             ///< what the keys were made from, as a part of a sentence
  std::string nameSpace;          ///< put before every node's name, without its colon; may be empty
  double framesPerSecond = 24.0;  ///< what the frames were made for
};

/// Writes the keys as command lines that set them in an open scene which has the same nodes,
/// wherever they hang: in one step of undo, time and selection left alone. What may be missing is
/// asked for first, since a script that stops half way leaves the step open. Nodes are named as
/// shortly as is unique in the scene; numbers are in the scene's units, so that they read back as
/// exactly the scene's. Channels and frames without a key are left out. Throws SceneError, with
/// nothing written, when a node has a name that command lines cannot give, or the script would be
/// larger than what is read.
void WriteKeyScript(const Scene& scene, const std::vector<KeyedNode>& nodes,
                    const KeyScriptOptions& options, std::ostream& out);

}  // namespace lipvane::standalone
