#include "lipvane/check/scene_check.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <unordered_map>
#include <unordered_set>

#include "lipvane/check/joint_names.h"
#include "lipvane/check/joint_turn.h"
#include "lipvane/check/lbp_sections.h"
#include "lipvane/check/namespace_hint.h"
#include "lipvane/check/rest_check.h"
#include "lipvane/check/words.h"
#include "lipvane/formats/lbp.h"
#include "lipvane/host/lost_keys.h"
#include "lipvane/host/standalone/namespaces.h"
#include "lipvane/host/standalone/refusal_text.h"
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
using standalone::TransformValues;
using text::Quoted;  // in full: long names of rigs often differ at their ends alone

/// Keys go to these; scale gets none.
constexpr Channel kKeyedChannels[] = {Channel::kTranslateX, Channel::kTranslateY,
                                      Channel::kTranslateZ, Channel::kRotateX,
                                      Channel::kRotateY,    Channel::kRotateZ};

/// In degrees: less is seen by nobody.
constexpr double kTurnTolerance = 0.1;

constexpr const char* kRotateOrders[] = {"xyz", "yzx", "zxy", "xzy", "yxz", "zyx"};

/// With its poses when they are what their lines look like: a wrong count gives each bone
/// another's.
TBonePoseInfo RigOf(std::string_view lbpText, const LbpSections& sections) {
  TBonePoseInfo rig;
  PhonemeMapping unused;
  ReadProblem problem;
  const bool isWhole = ReadLbpText(lbpText, rig, unused, problem) &&
                       rig.boneNames.size() == sections.hierarchy.size() &&
                       rig.poses.size() * rig.boneNames.size() == sections.boneLines.size();
  return isWhole ? rig : TBonePoseInfo();
}

class SceneCheck {
 public:
  SceneCheck(const TBonePoseInfo& rig, const CheckedScene& checked, Recorder& recorder)
      : rig_(rig),
        scene_(checked.scene),
        sceneName_(checked.name),
        nameSpace_(checked.nameSpace),
        jointNames_(checked.scene, checked.nameSpace),
        recorder_(recorder) {}

  /// False when no bone is in the scene, which is then all that there is to say.
  bool Run(const std::vector<NamedBone>& bones) {
    for (const NamedBone& bone : bones)
      nodes_.try_emplace(bone.name);
    for (PathId path = 0; path < scene_.PathCount(); ++path) {
      const NodeId node = scene_.NodeOf(path);
      const auto wanted = nodes_.find(standalone::RelativeName(scene_, node, nameSpace_));
      if (wanted == nodes_.end()) continue;
      // An instance is a node met before: it counts once, and yet may be the last.
      wanted->second.count += scene_.FirstPath(node) == path ? 1 : 0;
      wanted->second.last = node;
    }
    if (!bones.empty() && IsAbsent(bones)) return false;
    std::unordered_set<std::string_view> done;
    std::size_t keyless = 0;
    for (std::size_t i = 0; i < bones.size(); ++i) {
      if (done.insert(bones[i].name).second && !CheckBone(bones[i], i)) ++keyless;
    }
    if (keyless > 0) {
      recorder_.Add(bones.back().line, rule::kNoKeys, host::KeylessBones(keyless, done.size()));
    }
    return true;
  }

  /// The joints that were found and that no other node shares its name with.
  const std::vector<JointOfBone>& Joints() const { return joints_; }

 private:
  /// Whether all bones are missing: where they are many, or may be elsewhere, that is said in one
  /// finding.
  bool IsAbsent(const std::vector<NamedBone>& bones);
  /// False when it gets no keys at all.
  bool CheckBone(const NamedBone& named, std::size_t bone);
  void CheckRotation(std::size_t line, std::size_t bone, NodeId joint);
  bool CheckChannels(std::size_t line, NodeId joint);
  std::string PathOf(NodeId node) const { return Quoted(scene_.ShownPath(scene_.FirstPath(node))); }

  const TBonePoseInfo& rig_;
  const Scene& scene_;
  std::string sceneName_;
  std::string nameSpace_;
  JointNames jointNames_;
  Recorder& recorder_;
  struct Nodes {
    std::size_t count = 0;
    NodeId last = 0;
  };
  std::unordered_map<std::string_view, Nodes> nodes_;
  std::vector<JointOfBone> joints_;
};

bool SceneCheck::IsAbsent(const std::vector<NamedBone>& bones) {
  constexpr std::size_t kMostAlone = 4;
  std::vector<std::string> missing;
  for (const NamedBone& bone : bones) {
    if (nodes_[bone.name].count > 0) return false;
    missing.emplace_back(bone.name);
  }
  const std::string hint = ElsewhereHint(scene_, missing);
  if (hint.empty() && bones.size() <= kMostAlone) return false;
  const std::string& first = missing.front();
  recorder_.Add(
      bones.front().line, rule::kBoneMissing,
      "none of the " + std::to_string(bones.size()) + " bones is in " + sceneName_ +
          (hint.empty() ? ", the first is " + Quoted(first) + jointNames_.DidYouMean(first, "; ")
                        : " by its plain name; " + hint));
  return true;
}

bool SceneCheck::CheckBone(const NamedBone& named, std::size_t bone) {
  const std::string subject = "bone " + Quoted(named.name);
  const Nodes& found = nodes_[named.name];
  if (found.count == 0) {
    recorder_.Add(named.line, rule::kBoneMissing,
                  subject + " is not in " + sceneName_ + jointNames_.DidYouMean(named.name, "; "));
    return false;
  }
  // The keys go to the last one met, joint or not.
  const NodeId node = found.last;
  const bool isJoint = scene_.Kind(node) == standalone::NodeKind::kJoint;
  if (found.count > 1) {
    recorder_.Add(named.line, rule::kBoneRepeated,
                  subject + " is in " + sceneName_ + " " + std::to_string(found.count) +
                      " times: " + (isJoint ? "the keys go to " : "the keys would go to ") +
                      PathOf(node));
  }
  if (!isJoint) {
    recorder_.Add(named.line, rule::kBoneNotJoint,
                  subject + " is " + PathOf(node) + " in " + sceneName_ + ", of the type " +
                      scene_.Type(node) + " and no joint: it gets no keys");
    return false;
  }
  if (found.count == 1) joints_.push_back({bone, node, named.line});
  CheckRotation(named.line, bone, node);
  return CheckChannels(named.line, node);
}

void SceneCheck::CheckRotation(std::size_t line, std::size_t bone, NodeId joint) {
  if (rig_.poses.empty()) return;
  std::string orderDriver;
  std::string axisDriver;
  const auto keepDriver = [&](const std::string& attribute, const std::string& driver) {
    if (attribute == "rotateOrder") orderDriver = driver;
    if (attribute.rfind("rotateAxis", 0) == 0) axisDriver = driver;
  };
  const TransformValues values = scene_.ValuesAt(joint, scene_.StartTime(), keepDriver);
  const std::string subject = "joint " + PathOf(joint) + " in " + sceneName_ + " has ";
  const auto isDriven = [&](const std::string& driver) {
    return " that " + Quoted(ShownName(driver)) +
           " drives, which is not evaluated here: keys may not give the pose back";
  };
  TransformValues onlyOrder = values;
  onlyOrder.rotateAxis = {};
  TransformValues onlyAxis = values;
  onlyAxis.rotateOrder = standalone::RotateOrder::kXyz;
  const WorstTurn off = FindWorstTurn(rig_, bone, values);
  // Most joints turn so that it makes no difference, and one may make up for the other.
  const auto matters = [&](const TransformValues& alone) {
    return off.degrees > kTurnTolerance &&
           FindWorstTurn(rig_, bone, alone).degrees > kTurnTolerance;
  };
  const std::string howFar = ": keyed with pose " + std::to_string(off.pose) + " it stands " +
                             text::RoundedReal(std::round(off.degrees * 10) / 10) + " degrees off";
  if (!orderDriver.empty()) {
    recorder_.Add(line, rule::kRotateOrder, subject + "a rotate order" + isDriven(orderDriver));
  } else if (matters(onlyOrder)) {
    recorder_.Add(line, rule::kRotateOrder,
                  subject + "the rotate order " +
                      kRotateOrders[static_cast<std::size_t>(values.rotateOrder)] + ", not xyz" +
                      howFar);
  }
  if (!axisDriver.empty()) {
    recorder_.Add(line, rule::kRotateAxis, subject + "a rotate axis" + isDriven(axisDriver));
  } else if (matters(onlyAxis)) {
    recorder_.Add(line, rule::kRotateAxis, subject + "a rotate axis that is not zero" + howFar);
  }
}

/// Says which channels get no keys, in one line for each kind of cause. False when none gets any.
bool SceneCheck::CheckChannels(std::size_t line, NodeId joint) {
  const std::string subject = PathOf(joint) + " in " + sceneName_;
  host::LostKeys driven;
  host::LostKeys locked;
  std::size_t refused = 0;
  for (const Channel channel : kKeyedChannels) {
    const Refusal refusal = scene_.RefusalOf(joint, channel);
    if (refusal == Refusal::kNone || refusal == Refusal::kNoChannel) continue;
    ++refused;
    (refusal == Refusal::kLocked ? locked : driven)
        .AddLost(subject, ChannelName(channel), standalone::RefusalText(scene_, joint, channel));
  }
  const bool isKeyed = refused < std::size(kKeyedChannels);
  const auto add = [&](host::LostKeys& lost, const Rule& rule) {
    if (lost.Lines().empty()) return;
    if (isKeyed) lost.AddKeyed(subject);
    recorder_.Add(line, rule, lost.Lines().front());
  };
  add(driven, rule::kChannelDriven);
  add(locked, rule::kChannelLocked);
  return isKeyed;
}

}  // namespace

bool CheckBonesAgainstScene(const std::vector<NamedBone>& bones, const TBonePoseInfo& rig,
                            const CheckedScene& scene, Recorder& recorder) {
  return SceneCheck(rig, scene, recorder).Run(bones);
}

void CheckAgainstScene(const std::string& lbpFileName, std::string_view lbpText,
                       const CheckedScene& scene, std::vector<Finding>& findings) {
  const LbpSections sections = SplitLbpSections(lbpText);
  if (text::IntegerPrefix(sections.version.text) != LBP_FORMAT_VERSION) return;
  std::vector<NamedBone> bones;
  for (const DataLine& line : sections.hierarchy)
    bones.push_back({BoneName(line.text), line.number});
  const std::size_t before = findings.size();
  Recorder recorder(lbpFileName, findings);
  const TBonePoseInfo rig = RigOf(lbpText, sections);
  SceneCheck check(rig, scene, recorder);
  check.Run(bones);
  CheckRest(check.Joints(), rig, scene.scene, scene.name, recorder);
  SortByLine(findings, before);
}

}  // namespace lipvane::check
