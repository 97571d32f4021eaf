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
  if (drivenKeys.count(input.driver) != 0) {
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
  if (!driver.empty()) return {ChannelInput::Kind::kOther, driver, false, false};
  if (host_.curves.count(channel) != 0)
    return {ChannelInput::Kind::kTimeCurve, "curve", false, false};
  return {};
}

}  // namespace lipvane::test
