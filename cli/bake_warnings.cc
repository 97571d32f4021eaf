#include "cli/bake_warnings.h"

#include <algorithm>
#include <limits>
#include <string_view>
#include <unordered_map>

#include "cli/messages.h"
#include "lipvane/check/finding.h"
#include "lipvane/check/rules.h"
#include "lipvane/check/scene_check.h"
#include "lipvane/scene/bone_curves.h"
#include "lipvane/text/numbers.h"

namespace lipvane::cli {
namespace {

using standalone::Channel;
using standalone::NodeId;
using standalone::Scene;

/// The last node of each name: the one that keys go to.
std::unordered_map<std::string_view, NodeId> NodesByName(const Scene& scene) {
  std::unordered_map<std::string_view, NodeId> nodes;
  for (standalone::PathId path = 0; path < scene.PathCount(); ++path)
    nodes[scene.Name(scene.NodeOf(path))] = scene.NodeOf(path);
  return nodes;
}

/// A key of the channel that does not stand on a baked frame, or null.
const standalone::CurveKey* OtherKey(const Scene& scene, NodeId joint, Channel channel,
                                     const BakedFrames& frames) {
  const standalone::Curve* curve = scene.CurveOf(joint, channel);
  if (curve == nullptr || scene.RefusalOf(joint, channel) != standalone::Refusal::kNone) {
    return nullptr;
  }
  const auto& keys = curve->keys;
  const auto other = std::find_if(keys.begin(), keys.end(), [&](const standalone::CurveKey& key) {
    return !frames.Hold(key.time);
  });
  return other == keys.end() ? nullptr : &*other;
}

}  // namespace

void WarnOfJoints(const Scene& scene, const std::string& sceneName,
                  const std::vector<std::string>& boneNames, const TBonePoseInfo& rig) {
  std::vector<check::NamedBone> bones;
  bones.reserve(boneNames.size());
  for (const std::string& name : boneNames)
    bones.push_back({name, 1});
  std::vector<check::Finding> findings;
  check::Recorder recorder({}, findings, std::numeric_limits<std::size_t>::max());
  check::CheckBonesAgainstScene(bones, rig, scene, sceneName, recorder);
  for (const check::Finding& finding : findings) {
    const bool isOfChannel = finding.rule == check::rule::kChannelDriven ||
                             finding.rule == check::rule::kChannelLocked ||
                             finding.rule == check::rule::kNoKeys;
    if (!isOfChannel) PrintWarning(finding.text);
  }
}

void WarnOfOtherKeys(const Scene& scene, const std::vector<std::string>& boneNames,
                     const BakedFrames& frames) {
  const auto nodes = NodesByName(scene);
  std::size_t count = 0;
  std::string first;
  for (const std::string& name : boneNames) {
    const auto found = nodes.find(name);
    if (found == nodes.end() || scene.Kind(found->second) != standalone::NodeKind::kJoint) continue;
    for (std::size_t i = 0; i < scene::kPosedChannelCount; ++i) {
      const auto channel = static_cast<Channel>(i);
      const standalone::CurveKey* other = OtherKey(scene, found->second, channel, frames);
      if (other == nullptr || count++ > 0) continue;
      first = scene.ShownPath(scene.FirstPath(found->second));
      first.append(".").append(standalone::ChannelName(channel)).append(" at frame ");
      first += text::ExactReal(other->time);
    }
  }
  if (count == 0) return;
  PrintWarning("keys that the scene had at other times stay, on " + std::to_string(count) +
               (count == 1 ? " channel: " : " channels, the first ") + first);
}

}  // namespace lipvane::cli
