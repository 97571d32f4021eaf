#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "lipvane/host/host.h"

namespace lipvane::scene {

/// The channels of a bone that get curves, in their fixed order.
inline constexpr std::array<const char*, 9> kChannelNames = {
    "translateX", "translateY", "translateZ", "rotateX", "rotateY",
    "rotateZ",    "scaleX",     "scaleY",     "scaleZ"};

/// Where each kind of channel begins in that order, and how many of them poses have values for.
inline constexpr std::size_t kFirstTranslate = 0;
inline constexpr std::size_t kFirstRotate = 3;
inline constexpr std::size_t kPosedChannelCount = 6;

/// One bone of a pose file, bound to the scene. Destroying it leaves the curves in the scene.
struct BoneCurveSet {
  /// Unmatched, with nine curves attached to nothing.
  explicit BoneCurveSet(host::Host& host);

  std::string boneName;  ///< empty until matched
  host::Node node;       ///< null until matched
  std::array<std::unique_ptr<host::AnimCurve>, kChannelNames.size()> curves;
};

/// Binds a bone to a node of its name and makes the curves of the first `channelCount` channels.
/// A channel that takes no curve is the host's to report; the others still get theirs.
void BindBone(host::Host& host, const std::string& boneName, const host::DagPath& path,
              const host::Node& node, std::size_t channelCount, BoneCurveSet& bone);

/// Binds the first `boneCount` names to the scene's nodes of those names and makes the nine curves
/// of each. Every node of a name gets curves; the set then refers to the last one met. Fails, after
/// all bones have had their turn, when a name has no node; fails at once when the scene cannot
/// be walked.
host::Status CreateBoneCurves(host::Host& host, int boneCount,
                              const std::vector<std::string>& boneNames,
                              std::vector<BoneCurveSet>& boneCurves);

}  // namespace lipvane::scene
