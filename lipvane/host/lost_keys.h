#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

namespace lipvane::host {

/// What became of the keys of one command: the joints that took keys, and the channels that did
/// not. A host hears of each channel when a key is set; a channel that no key was meant for (scale,
/// which no pose has) loses nothing and is not named.
class LostKeys {
 public:
  /// A channel of the joint (its path, as messages show it) took a key.
  void AddKeyed(const std::string& joint);
  /// A channel of the joint took no key. `cause` follows the channel in a sentence: "locked",
  /// "driven by aim (not a curve over time)". A channel counts once.
  void AddLost(const std::string& joint, const std::string& channel, const std::string& cause);

  /// A line for each joint that lost keys, in the order in which they did, and a last one that
  /// counts those that got none at all. Empty when nothing was lost.
  std::vector<std::string> Lines() const;

  void Clear();

 private:
  struct Loss {
    std::string channel;
    std::string cause;
  };
  struct Joint {
    std::string path;
    bool isKeyed = false;
    std::vector<Loss> losses;
  };

  Joint& JointOf(const std::string& path);
  static std::string LineOf(const Joint& joint);

  std::vector<Joint> joints_;
  std::unordered_map<std::string, std::size_t> places_;  // of joints_, by path
};

/// "translateX and rotateX"; "all six" for all of translation and rotation.
std::string ListedChannels(const std::vector<std::string>& channels);

/// "12 of 41 bones get no keys".
std::string KeylessBones(std::size_t without, std::size_t all);

}  // namespace lipvane::host
