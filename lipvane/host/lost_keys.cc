#include "lipvane/host/lost_keys.h"

#include <algorithm>

namespace lipvane::host {
namespace {

/// Translation and rotation: what a pose has of a joint.
constexpr std::size_t kPosedChannels = 6;

}  // namespace

std::string JoinedNames(const std::vector<std::string>& names) {
  std::string joined;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (i > 0) joined += i + 1 < names.size() ? ", " : " and ";
    joined += names[i];
  }
  return joined;
}

LostKeys::Joint& LostKeys::JointOf(const std::string& path) {
  const auto [place, isNew] = places_.try_emplace(path, joints_.size());
  if (isNew) joints_.push_back({path, false, {}});
  return joints_[place->second];
}

void LostKeys::AddKeyed(const std::string& joint) {
  JointOf(joint).isKeyed = true;
}

void LostKeys::AddLost(const std::string& joint, const std::string& channel,
                       const std::string& cause) {
  std::vector<Loss>& losses = JointOf(joint).losses;
  const bool isKnown = std::any_of(losses.begin(), losses.end(),
                                   [&](const Loss& loss) { return loss.channel == channel; });
  if (!isKnown) losses.push_back({channel, cause});
}

std::string LostKeys::LineOf(const Joint& joint) {
  std::string line = joint.path + (joint.isKeyed ? " loses keys: " : " gets no keys: ");
  std::vector<std::string> channels;
  for (std::size_t i = 0; i < joint.losses.size(); ++i) {
    const Loss& loss = joint.losses[i];
    channels.push_back(loss.channel);
    const bool isLast = i + 1 == joint.losses.size();
    if (!isLast && joint.losses[i + 1].cause == loss.cause) continue;
    line += channels.size() == kPosedChannels ? "all six" : JoinedNames(channels);
    line += " " + loss.cause + (isLast ? "" : "; ");
    channels.clear();
  }
  return line;
}

std::vector<std::string> LostKeys::Lines() const {
  std::vector<std::string> lines;
  std::size_t without = 0;
  for (const Joint& joint : joints_) {
    if (joint.losses.empty()) continue;
    lines.push_back(LineOf(joint));
    without += joint.isKeyed ? 0 : 1;
  }
  if (without > 0) {
    lines.push_back(std::to_string(without) + " of " + std::to_string(joints_.size()) +
                    (joints_.size() == 1 ? " bone" : " bones") +
                    (without == 1 ? " gets no keys" : " get no keys"));
  }
  return lines;
}

void LostKeys::Clear() {
  joints_.clear();
  places_.clear();
}

}  // namespace lipvane::host
