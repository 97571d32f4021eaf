#include "lipvane/check/scene_check.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <unordered_map>
#include <unordered_set>

#include "lipvane/check/lbp_sections.h"
#include "lipvane/formats/lbp.h"
#include "lipvane/host/standalone/shown_name.h"
#include "lipvane/text/numbers.h"
#include "lipvane/text/printable.h"

namespace lipvane::check {
namespace {

using standalone::Channel;
using standalone::NodeId;
using standalone::PathId;
using standalone::Refusal;
using standalone::Scene;
using standalone::ShownName;
using text::Quoted;  // in full: long names of rigs often differ at their ends alone

/// Keys go to these; scale gets none.
constexpr Channel kKeyedChannels[] = {Channel::kTranslateX, Channel::kTranslateY,
                                      Channel::kTranslateZ, Channel::kRotateX,
                                      Channel::kRotateY,    Channel::kRotateZ};

/// In radians. Hosts write dust instead of zeros; a file's six digits hold no less than this.
constexpr double kAxisTolerance = 1e-6;

constexpr const char* kRotateOrders[] = {"xyz", "yzx", "zxy", "xzy", "yxz", "zyx"};

class SceneCheck {
 public:
  SceneCheck(const Scene& scene, std::string sceneName, Recorder& recorder)
      : scene_(scene), sceneName_(std::move(sceneName)), recorder_(recorder) {}

  void Run(const std::vector<NamedBone>& bones) {
    for (const NamedBone& bone : bones)
      nodes_.try_emplace(bone.name);
    for (PathId path = 0; path < scene_.PathCount(); ++path) {
      const NodeId node = scene_.NodeOf(path);
      const auto wanted = nodes_.find(scene_.Name(node));
      if (wanted == nodes_.end()) continue;
      // An instance is a node met before: it counts once, and yet may be the last.
      wanted->second.count += scene_.FirstPath(node) == path ? 1 : 0;
      wanted->second.last = node;
    }
    std::unordered_set<std::string_view> done;
    for (const NamedBone& bone : bones) {
      if (done.insert(bone.name).second) CheckBone(bone);
    }
  }

 private:
  void CheckBone(const NamedBone& named);
  void CheckRotation(std::size_t line, NodeId joint);
  void CheckChannel(std::size_t line, NodeId joint, Channel channel);
  std::string PathOf(NodeId node) const { return Quoted(scene_.ShownPath(scene_.FirstPath(node))); }

  const Scene& scene_;
  std::string sceneName_;
  Recorder& recorder_;
  struct Nodes {
    std::size_t count = 0;
    NodeId last = 0;
  };
  std::unordered_map<std::string_view, Nodes> nodes_;
};

void SceneCheck::CheckBone(const NamedBone& named) {
  const std::string bone = "bone " + Quoted(named.name);
  const Nodes& found = nodes_[named.name];
  if (found.count == 0) {
    recorder_.Add(named.line, rule::kBoneMissing, bone + " is not in " + sceneName_);
    return;
  }
  // The keys go to the last one met, joint or not.
  const NodeId node = found.last;
  const bool isJoint = scene_.Kind(node) == standalone::NodeKind::kJoint;
  if (found.count > 1) {
    recorder_.Add(named.line, rule::kBoneRepeated,
                  bone + " is in " + sceneName_ + " " + std::to_string(found.count) + " times: " +
                      (isJoint ? "the keys go to " : "the keys would go to ") + PathOf(node));
  }
  if (!isJoint) {
    recorder_.Add(named.line, rule::kBoneNotJoint,
                  bone + " is " + PathOf(node) + " in " + sceneName_ + ", of the type " +
                      scene_.Type(node) + " and no joint: it gets no keys");
    return;
  }
  CheckRotation(named.line, node);
  for (const Channel channel : kKeyedChannels)
    CheckChannel(named.line, node, channel);
}

void SceneCheck::CheckRotation(std::size_t line, NodeId joint) {
  std::string orderDriver;
  std::string axisDriver;
  const auto keepDriver = [&](const std::string& attribute, const std::string& driver) {
    if (attribute == "rotateOrder") orderDriver = driver;
    if (attribute.rfind("rotateAxis", 0) == 0) axisDriver = driver;
  };
  const standalone::TransformValues values = scene_.ValuesAt(joint, scene_.StartTime(), keepDriver);
  const std::string subject = "joint " + PathOf(joint) + " in " + sceneName_ + " has a rotate ";
  const auto isDriven = [&](const std::string& driver) {
    return " that " + Quoted(ShownName(driver)) +
           " drives, which is not evaluated here: keys may not give the pose back";
  };
  if (!orderDriver.empty()) {
    recorder_.Add(line, rule::kRotateOrder, subject + "order" + isDriven(orderDriver));
  } else if (values.rotateOrder != standalone::RotateOrder::kXyz) {
    recorder_.Add(line, rule::kRotateOrder,
                  "joint " + PathOf(joint) + " in " + sceneName_ + " has the rotate order " +
                      kRotateOrders[static_cast<std::size_t>(values.rotateOrder)] +
                      ", not xyz: keys do not give the pose back");
  }
  if (!axisDriver.empty()) {
    recorder_.Add(line, rule::kRotateAxis, subject + "axis" + isDriven(axisDriver));
  } else if (std::any_of(values.rotateAxis.begin(), values.rotateAxis.end(),
                         [](double angle) { return std::abs(angle) > kAxisTolerance; })) {
    recorder_.Add(line, rule::kRotateAxis,
                  subject + "axis that is not zero: keys do not give the pose back");
  }
}

void SceneCheck::CheckChannel(std::size_t line, NodeId joint, Channel channel) {
  const std::string path =
      Quoted(scene_.ShownPath(scene_.FirstPath(joint)) + "." + ChannelName(channel)) + " in " +
      sceneName_;
  const auto add = [&](const Rule& rule, const std::string& text) {
    recorder_.Add(line, rule, path + text);
  };
  const std::string driven =
      " is driven by " + Quoted(ShownName(scene_.DriverName(joint, channel)));
  switch (scene_.RefusalOf(joint, channel)) {
    case Refusal::kLocked:
      return add(rule::kChannelLocked, " is locked: it gets no curve and no keys");
    case Refusal::kOther:
      return add(rule::kChannelDriven,
                 driven + " (not a curve over time): it gets no curve and no keys");
    case Refusal::kLostValues:
      return add(rule::kChannelDriven,
                 driven + " through a conversion that loses its values: it gets no keys");
    case Refusal::kUnreadKeys:
      return add(rule::kChannelDriven,
                 driven + ", a curve with keys that are not understood: it gets no keys");
    case Refusal::kNoChannel:
    case Refusal::kNone:
      break;
  }
}

}  // namespace

void CheckBonesAgainstScene(const std::vector<NamedBone>& bones, const Scene& scene,
                            const std::string& sceneName, Recorder& recorder) {
  SceneCheck(scene, sceneName, recorder).Run(bones);
}

void CheckAgainstScene(const std::string& lbpFileName, std::string_view lbpText,
                       const standalone::Scene& scene, const std::string& sceneName,
                       std::vector<Finding>& findings) {
  const LbpSections sections = SplitLbpSections(lbpText);
  if (text::IntegerPrefix(sections.version.text) != LBP_FORMAT_VERSION) return;
  std::vector<NamedBone> bones;
  for (const DataLine& line : sections.hierarchy)
    bones.push_back({BoneName(line.text), line.number});
  const std::size_t before = findings.size();
  Recorder recorder(lbpFileName, findings);
  CheckBonesAgainstScene(bones, scene, sceneName, recorder);
  SortByLine(findings, before);
}

}  // namespace lipvane::check
