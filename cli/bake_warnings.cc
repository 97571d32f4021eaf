#include "cli/bake_warnings.h"

#include <algorithm>
#include <limits>
#include <map>

#include "cli/messages.h"
#include "lipvane/check/finding.h"
#include "lipvane/check/rules.h"
#include "lipvane/check/scene_check.h"
#include "lipvane/host/lost_keys.h"
#include "lipvane/host/standalone/shown_name.h"
#include "lipvane/scene/bone_curves.h"
#include "lipvane/text/numbers.h"

namespace lipvane::cli {
namespace {

using standalone::Channel;
using standalone::NodeId;
using standalone::Scene;

/// What keeps keys from channels, by what a user can do about it.
struct Cause {
  const char* what;
  const char* advice;
};
constexpr const char* kDisconnect =
    "break the connections, or bake onto a copy of the joints without them";
constexpr const char* kDelete = "delete them, or bake onto a copy of the joints without them";
constexpr Cause kLocked{"locked channels", "unlock them"};
constexpr Cause kConstraints{"constraints", kDelete};
constexpr Cause kDrivenKeys{"set-driven keys", kDelete};
constexpr Cause kControls{"controls or other joints", kDisconnect};
constexpr Cause kOthers{"other nodes", kDisconnect};
constexpr Cause kOddCurves{"curves that take no keys here", kDelete};

const Cause& CauseOf(const Scene& scene, NodeId joint, Channel channel) {
  switch (scene.RefusalOf(joint, channel)) {
    case standalone::Refusal::kLocked:
      return kLocked;
    case standalone::Refusal::kLostValues:
    case standalone::Refusal::kUnreadKeys:
      return kOddCurves;
    default:
      break;
  }
  const std::string& type = scene.DriverType(joint, channel);
  if (type == "pairBlend" || type.find("Constraint") != std::string::npos) return kConstraints;
  if (type.rfind("animCurveU", 0) == 0 || type == "blendWeighted") return kDrivenKeys;
  return type == "transform" || type == "joint" ? kControls : kOthers;
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

bool WarnOfJoints(const check::CheckedScene& scene, const std::string& lbpName,
                  const std::vector<std::string>& boneNames, const TBonePoseInfo& rig) {
  std::vector<check::NamedBone> bones;
  bones.reserve(boneNames.size());
  for (const std::string& name : boneNames)
    bones.push_back({name, 1});
  std::vector<check::Finding> findings;
  check::Recorder recorder({}, findings, std::numeric_limits<std::size_t>::max());
  if (!check::CheckBonesAgainstScene(bones, rig, scene, recorder)) {
    PrintError(lbpName + ": " + findings.front().text);
    return false;
  }
  for (const check::Finding& finding : findings) {
    const bool isOfChannel = finding.rule == check::rule::kChannelDriven ||
                             finding.rule == check::rule::kChannelLocked ||
                             finding.rule == check::rule::kNoKeys;
    if (!isOfChannel) PrintWarning(finding.text);
  }
  return true;
}

std::size_t WarnOfLostKeys(const Scene& scene, const std::vector<NodeId>& joints) {
  struct Losses {
    std::size_t joints = 0;
    std::string first;
  };
  std::map<const Cause*, Losses> losses;
  std::size_t keyed = 0;
  for (const NodeId joint : joints) {
    std::map<const Cause*, Channel> causes;
    std::size_t lost = 0;
    for (std::size_t i = 0; i < scene::kPosedChannelCount; ++i) {
      const auto channel = static_cast<Channel>(i);
      if (scene.RefusalOf(joint, channel) == standalone::Refusal::kNone) continue;
      ++lost;
      causes.emplace(&CauseOf(scene, joint, channel), channel);
    }
    keyed += lost < scene::kPosedChannelCount ? 1 : 0;
    for (const auto& [cause, channel] : causes) {
      if (losses[cause].joints++ > 0) continue;
      const std::string& driver = scene.DriverName(joint, channel);
      losses[cause].first = scene.ShownPath(scene.FirstPath(joint)) + "." + ChannelName(channel);
      if (cause != &kLocked) losses[cause].first += " by " + standalone::ShownName(driver);
    }
  }
  const std::string all =
      " of " + std::to_string(joints.size()) + (joints.size() == 1 ? " bone" : " bones");
  for (const Cause* cause :
       {&kLocked, &kConstraints, &kDrivenKeys, &kControls, &kOthers, &kOddCurves}) {
    const auto found = losses.find(cause);
    if (found == losses.end()) continue;
    PrintWarning(cause->what + (" keep keys from " + std::to_string(found->second.joints)) + all +
                 ", the first " + found->second.first + ": " + cause->advice);
  }
  if (const std::size_t none = joints.size() - keyed) {
    PrintWarning(host::KeylessBones(none, joints.size()));
  }
  return keyed;
}

void WarnOfOtherKeys(const Scene& scene, const std::vector<NodeId>& joints,
                     const BakedFrames& frames) {
  std::size_t count = 0;
  std::string first;
  for (const NodeId joint : joints) {
    for (std::size_t i = 0; i < scene::kPosedChannelCount; ++i) {
      const auto channel = static_cast<Channel>(i);
      const standalone::CurveKey* other = OtherKey(scene, joint, channel, frames);
      if (other == nullptr || count++ > 0) continue;
      first = scene.ShownPath(scene.FirstPath(joint));
      first.append(".").append(standalone::ChannelName(channel)).append(" at frame ");
      first += text::ExactReal(other->time);
    }
  }
  if (count == 0) return;
  PrintWarning("keys that the scene had at other times stay, on " + std::to_string(count) +
               (count == 1 ? " channel: " : " channels, the first ") + first);
}

}  // namespace lipvane::cli
