#pragma once

#include <array>
#include <map>
#include <string>
#include <vector>

namespace lipvane::test {

using Triple = std::array<double, 3>;

/// Where a node stands at one frame: centimetres and degrees.
struct Stand {
  Triple translate{0, 0, 0};
  Triple rotate{0, 0, 0};
};

struct NodeDescription {
  std::string type = "joint";   ///< "joint", "transform" or "mesh"
  std::string path;             ///< "|head|jaw"; its parent comes earlier in the list
  Stand stand;                  ///< without frames
  Triple orient{0, 0, 0};       ///< joint orientation in degrees
  std::map<int, Stand> frames;  ///< keyed stands
  /// "rotateX" -> the name of a node that drives it and is no curve.
  std::map<std::string, std::string> drivers;
  /// "rotateX" -> the types of the nodes between it and its curve, the nearest to it first.
  std::map<std::string, std::vector<std::string>> between;
};

/// A scene in plain values, from which every host under test makes its own.
using SceneDescription = std::vector<NodeDescription>;

std::string NameOf(const NodeDescription& node);
std::string ParentPathOf(const NodeDescription& node);

/// The scene as the host would write it, in centimetres, degrees and 24 frames a second.
std::string MayaAscii(const SceneDescription& scene);

}  // namespace lipvane::test
