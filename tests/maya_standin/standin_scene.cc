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
  const std::string driver = scene.DriverName(*id, *channel);
  if (scene.IsLocked(*id, *channel)) return {ChannelInput::Kind::kLocked, {}};
  if (drivenKeys.count(driver) != 0) return {ChannelInput::Kind::kDrivenKey, driver};
  switch (scene.DriverOf(*id, *channel)) {
    case standalone::Driver::kNone:
      return {};
    case standalone::Driver::kCurve:
      return {ChannelInput::Kind::kTimeCurve, driver};
    case standalone::Driver::kOther:
      break;
  }
  return {ChannelInput::Kind::kOther, driver};
}

ChannelInput RecordingStandinScene::InputOf(const host::Node& node,
                                            const host::Attribute& attribute) {
  const std::string channel = host_.ChannelOf(node, attribute);
  const std::string driver = host_.DriverOf(channel);
  if (!driver.empty()) return {ChannelInput::Kind::kOther, driver};
  if (host_.curves.count(channel) != 0) return {ChannelInput::Kind::kTimeCurve, "curve"};
  return {};
}

}  // namespace lipvane::test
