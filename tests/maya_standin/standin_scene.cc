#include "tests/maya_standin/standin_scene.h"

#include "lipvane/host/standalone/scene.h"

namespace lipvane::test {

using standalone::StandaloneHost;

std::string EmbeddedStandinScene::FullPath(const host::Node& node) {
  const auto id = StandaloneHost::IdOf(node);
  const standalone::Scene& scene = host_.GetScene();
  return id ? scene.FullPath(scene.FirstPath(*id)) : std::string();
}

ChannelInput EmbeddedStandinScene::InputOf(const host::Node& node,
                                           const host::Attribute& attribute) {
  const auto id = StandaloneHost::IdOf(node);
  const auto channel = StandaloneHost::ChannelOf(attribute);
  if (!id || !channel) return {};
  const standalone::Scene& scene = host_.GetScene();
  ChannelInput input;
  input.driver = scene.DriverName(*id, *channel);
  input.isLocked = scene.IsLocked(*id, *channel);
  input.isOfCompound = compoundDrivers.count(input.driver) != 0;
  const std::string name = FullPath(node) + "." + standalone::ChannelName(*channel);
  input.isLockOfCompound = lockedAsOne.count(name) != 0;
  const auto way = between.find(name);
  if (way != between.end()) input.between = way->second;
  input.isRetimed = retimedCurves.count(input.driver) != 0;
  if (input.isRetimed || !input.between.empty()) {
    input.kind = ChannelInput::Kind::kTimeCurve;
  } else if (drivenKeys.count(input.driver) != 0) {
    input.kind = ChannelInput::Kind::kDrivenKey;
  } else if (scene.DriverOf(*id, *channel) != standalone::Driver::kNone) {
    const bool isCurve = scene.DriverOf(*id, *channel) == standalone::Driver::kCurve;
    input.kind = isCurve ? ChannelInput::Kind::kTimeCurve : ChannelInput::Kind::kOther;
  }
  return input;
}

ChannelInput RecordingStandinScene::InputOf(const host::Node& node,
                                            const host::Attribute& attribute) {
  const std::string channel = host_.ChannelOf(node, attribute);
  const std::string driver = host_.DriverOf(channel);
  ChannelInput input;
  input.driver = driver;
  if (!driver.empty()) input.kind = ChannelInput::Kind::kOther;
  if (driver.empty() && host_.curves.count(channel) != 0) {
    input.kind = ChannelInput::Kind::kTimeCurve;
    input.driver = "curve";
  }
  return input;
}

}  // namespace lipvane::test
