#include "lipvane/host/lost_keys.h"

#include <algorithm>
#include <array>
#include <utility>

#include "lipvane/text/lists.h"

namespace lipvane::host {
namespace {

/// What a pose has of a joint.
constexpr std::array<const char*, 6> kPosedChannels = {"translateX", "translateY", "translateZ",
                                                       "rotateX",    "rotateY",    "rotateZ"};

}  // namespace

std::string KeylessBones(std::size_t without, std::size_t all) {
  // In one form for any number, so that a search finds it.
  return std::to_string(without) + " of " + std::to_string(all) + " bones get no keys";
}

std::string ListedChannels(const std::vector<std::string>& channels) {
  const bool isAll = std::is_permutation(channels.begin(), channels.end(), kPosedChannels.begin(),
                                         kPosedChannels.end());
  return isAll ? "all six" : text::JoinedNames(channels);
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
  std::vector<std::pair<std::string, std::vector<std::string>>> causes;
  for (const Loss& loss : joint.losses) {
    auto cause = std::find_if(causes.begin(), causes.end(),
                              [&](const auto& known) { return known.first == loss.cause; });
    if (cause == causes.end()) cause = causes.insert(cause, {loss.cause, {}});
    cause->second.push_back(loss.channel);
  }
  std::string line = joint.path + (joint.isKeyed ? " loses keys: " : " gets no keys: ");
  for (std::size_t i = 0; i < causes.size(); ++i) {
    const auto& [cause, channels] = causes[i];
    line += (i > 0 ? "; " : "") + ListedChannels(channels) + " " + cause;
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
  if (without > 0) lines.push_back(KeylessBones(without, joints_.size()));
  return lines;
}

void LostKeys::Clear() {
  joints_.clear();
  places_.clear();
}

}  // namespace lipvane::host
