#include "lipvane/host/standalone/standalone_host.h"

#include <algorithm>
#include <any>
#include <cmath>
#include <cstddef>
#include <stdexcept>
#include <utility>

#include "lipvane/host/standalone/limits.h"
#include "lipvane/host/standalone/namespaces.h"
#include "lipvane/host/standalone/references.h"
#include "lipvane/host/standalone/refusal_text.h"
#include "lipvane/host/standalone/shown_name.h"
#include "lipvane/host/standalone/words.h"

namespace lipvane::standalone {
namespace {

// What the handles of the interface hold. Small enough for std::any to hold without allocating.
struct PathHandle {
  PathId id;
};
struct NodeHandle {
  NodeId id;
};
struct AttributeHandle {
  Channel channel;
};

std::optional<PathId> PathIdOf(const host::DagPath& path) {
  const auto* handle = std::any_cast<PathHandle>(&path.object);
  if (handle == nullptr) return std::nullopt;
  return handle->id;
}

bool HasChannels(NodeKind kind) {
  return kind == NodeKind::kTransform || kind == NodeKind::kJoint;
}

bool IsFinite(const host::Matrix& matrix) {
  return std::all_of(matrix.begin(), matrix.end(), [](const auto& row) {
    return std::all_of(row.begin(), row.end(), [](double value) { return std::isfinite(value); });
  });
}

class SceneIterator : public host::DagIterator {
 public:
  explicit SceneIterator(std::size_t pathCount) : pathCount_(pathCount) {}

  bool IsDone() const override { return at_ >= pathCount_; }
  void Next() override { ++at_; }
  host::Status GetPath(host::DagPath& path) const override {
    if (IsDone()) return host::StatusCode::kFailure;
    path.object = PathHandle{at_};
    return {};
  }

 private:
  PathId at_ = 0;
  std::size_t pathCount_;
};

}  // namespace

class StandaloneHost::SceneJoint : public host::Joint {
 public:
  SceneJoint(StandaloneHost& host, NodeId node) : host_(host), node_(node) {}

  host::Status GetOrientation(host::Rotation& orientation) const override {
    const TransformValues values = host_.ValuesNow(
        node_, [](const std::string& attribute) { return attribute.rfind("jointOrient", 0) == 0; });
    orientation = RotationFromEuler(values.jointOrient, RotateOrder::kXyz);
    return {};
  }

 private:
  StandaloneHost& host_;
  NodeId node_;
};

/// Holds no part of the scene itself: a curve is found through the channel that it drives.
class StandaloneHost::SceneCurve : public host::AnimCurve {
 public:
  explicit SceneCurve(StandaloneHost& host) : host_(host) {}

  host::Status Create(const host::Node& node, const host::Attribute& attribute) override {
    attached_ = false;
    isReported_ = true;
    const auto id = IdOf(node);
    const auto channel = ChannelOf(attribute);
    if (!id || !channel || !HasChannels(host_.scene_.Kind(*id))) {
      return host::StatusCode::kInvalidParameter;
    }
    node_ = *id;
    channel_ = *channel;
    isReported_ = false;
    attached_ = host_.scene_.AttachCurve(node_, channel_);
    return attached_ ? host::StatusCode::kSuccess : host::StatusCode::kFailure;
  }

  host::Status AddKeyframe(double frame, double value) override {
    const bool isFinite = std::isfinite(frame) && std::isfinite(value);
    if (!isReported_ && (isFinite || !attached_)) Report();
    if (!attached_) return host::StatusCode::kFailure;
    if (!isFinite) return host::StatusCode::kInvalidParameter;
    host_.scene_.SetKey(node_, channel_, frame, value);
    return {};
  }

 private:
  /// Of the channel's first key.
  void Report() {
    isReported_ = true;
    const std::string joint = host_.scene_.ShownPath(host_.scene_.FirstPath(node_));
    if (attached_) {
      host_.WarnShared(node_, channel_);
      host_.keyedNodes_.insert(node_);
      host_.lostKeys_.AddKeyed(joint);
    } else {
      host_.lostKeys_.AddLost(joint, ChannelName(channel_),
                              RefusalText(host_.scene_, node_, channel_));
    }
  }

  StandaloneHost& host_;
  bool attached_ = false;
  bool isReported_ = true;
  NodeId node_ = 0;
  Channel channel_ = Channel::kTranslateX;
};

StandaloneHost::StandaloneHost(Scene& scene, MessageSink sink)
    : scene_(scene), sink_(std::move(sink)), currentTime_(scene.StartTime()) {}

std::optional<NodeId> StandaloneHost::IdOf(const host::Node& node) {
  const auto* handle = std::any_cast<NodeHandle>(&node.object);
  if (handle == nullptr) return std::nullopt;
  return handle->id;
}

std::optional<Channel> StandaloneHost::ChannelOf(const host::Attribute& attribute) {
  const auto* handle = std::any_cast<AttributeHandle>(&attribute.object);
  if (handle == nullptr) return std::nullopt;
  return handle->channel;
}

std::vector<PathId> StandaloneHost::FindPaths(const NamePattern& pattern) {
  const auto count = [&](std::size_t paths) {
    pathsMatched_ += paths;
    if (pathsMatched_ > kMaxNameSearch) {
      throw std::length_error("too many nodes would have to be looked at for its names");
    }
  };
  std::vector<PathId> found;
  if (!pattern.IsPlain()) {
    count(scene_.PathCount());
    for (PathId path = 0; path < scene_.PathCount(); ++path) {
      if (pattern.Matches(scene_, path)) found.push_back(path);
    }
    return found;
  }
  if (pathsByName_.empty()) {
    std::unordered_map<std::string_view, std::vector<PathId>> paths;
    // A name is looked up once for all paths of its node.
    std::vector<std::vector<PathId>*> ofNode(scene_.NodeCount());
    for (PathId path = 0; path < scene_.PathCount(); ++path) {
      const NodeId node = scene_.NodeOf(path);
      if (ofNode[node] == nullptr) ofNode[node] = &paths[scene_.Name(node)];
      ofNode[node]->push_back(path);
    }
    pathsByName_ = std::move(paths);
  }
  const auto candidates = pathsByName_.find(pattern.ShortName());
  if (candidates == pathsByName_.end()) return found;
  count(candidates->second.size());
  for (const PathId path : candidates->second) {
    if (pattern.Matches(scene_, path)) found.push_back(path);
  }
  return found;
}

void StandaloneHost::Select(const std::vector<PathId>& paths, host::ListAdjustment adjustment) {
  if (adjustment == host::ListAdjustment::kReplaceList) ClearSelection();
  for (const PathId path : paths) {
    // Room first, so that nothing can be in one list alone.
    if (selection_.size() == selection_.capacity()) selection_.reserve(2 * selection_.size() + 1);
    if (selected_.insert(path).second) selection_.push_back(path);
  }
}

std::unique_ptr<host::DagIterator> StandaloneHost::NewDagIterator(host::Status& status) {
  const std::string missing = MissingReferences(scene_);
  if (!missing.empty()) WarnOnce(missing);
  status = {};
  return std::make_unique<SceneIterator>(scene_.PathCount());
}

host::Status StandaloneHost::AttachDagNode(const host::DagPath& path, host::Node& node) {
  const auto id = PathIdOf(path);
  if (!id) return host::StatusCode::kInvalidParameter;
  node.object = NodeHandle{scene_.NodeOf(*id)};
  return {};
}

host::Status StandaloneHost::TransformOf(const host::DagPath& path, host::Node& transform) {
  const auto id = PathIdOf(path);
  if (!id) return host::StatusCode::kInvalidParameter;
  PathId at = *id;
  while (at != 0 && !HasChannels(scene_.Kind(scene_.NodeOf(at))))
    at = scene_.ParentPath(at);
  if (at == 0) return host::StatusCode::kInvalidParameter;
  transform.object = NodeHandle{scene_.NodeOf(at)};
  return {};
}

std::string StandaloneHost::NodeName(const host::Node& node) {
  const auto id = IdOf(node);
  return id ? RelativeName(scene_, *id, nameSpace_) : std::string();
}

host::Node StandaloneHost::ParentOf(const host::Node& node, unsigned index) {
  const auto id = IdOf(node);
  if (!id || *id == 0) return {};
  if (index == 0) return {NodeHandle{scene_.FirstParent(*id)}};
  std::vector<NodeId> parents;
  for (PathId path = scene_.FirstPath(*id); path < scene_.PathCount(); ++path) {
    if (scene_.NodeOf(path) != *id) continue;
    const NodeId parent = scene_.NodeOf(scene_.ParentPath(path));
    if (std::find(parents.begin(), parents.end(), parent) == parents.end()) {
      parents.push_back(parent);
    }
  }
  if (index >= parents.size()) return {};
  return {NodeHandle{parents[index]}};
}

host::Attribute StandaloneHost::FindAttribute(const host::Node& node, const std::string& name) {
  const auto id = IdOf(node);
  if (!id || !HasChannels(scene_.Kind(*id))) return {};
  for (std::size_t i = 0; i < kChannelCount; ++i) {
    const auto channel = static_cast<Channel>(i);
    if (name == ChannelName(channel) || name == ChannelShortName(channel))
      return {AttributeHandle{channel}};
  }
  return {};
}

host::Status StandaloneHost::LocalMatrix(const host::Node& transform, host::Matrix& matrix) {
  const auto id = IdOf(transform);
  if (!id) return host::StatusCode::kInvalidParameter;
  TransformValues values;
  if (HasChannels(scene_.Kind(*id))) values = ValuesNow(*id);
  matrix = standalone::LocalMatrix(values);
  if (!IsFinite(matrix)) {
    WarnOnce(scene_.ShownPath(scene_.FirstPath(*id)) +
             " has a local matrix that is not finite: so is what is made from it");
  }
  return {};
}

host::Transformation StandaloneHost::Decompose(const host::Matrix& matrix) {
  return standalone::Decompose(matrix);
}

std::array<double, 3> StandaloneHost::EulerAngles(const host::Matrix& matrix) {
  return standalone::EulerAngles(matrix);
}

std::unique_ptr<host::Joint> StandaloneHost::AttachJoint(const host::Node& node,
                                                         host::Status& status) {
  const auto id = IdOf(node);
  if (!id || scene_.Kind(*id) != NodeKind::kJoint) {
    status = host::StatusCode::kInvalidParameter;
    return nullptr;
  }
  status = {};
  return std::make_unique<SceneJoint>(*this, *id);
}

std::unique_ptr<host::AnimCurve> StandaloneHost::NewAnimCurve() {
  return std::make_unique<SceneCurve>(*this);
}

host::Status StandaloneHost::SetCurrentTime(double frame) {
  if (!std::isfinite(frame)) return host::StatusCode::kInvalidParameter;
  currentTime_ = frame;
  return {};
}

host::Status StandaloneHost::SelectByName(const std::string& name,
                                          host::ListAdjustment adjustment) {
  const std::vector<PathId> paths = FindPaths(NamePattern(name, scene_.Page(), nameSpace_));
  if (paths.empty()) return host::StatusCode::kFailure;
  Select(paths, adjustment);
  return {};
}

host::Status StandaloneHost::GetSelectionLength(unsigned& length) {
  length = static_cast<unsigned>(selection_.size());
  return {};
}

host::Status StandaloneHost::ClearSelection() {
  selection_.clear();
  selected_.clear();
  return {};
}

std::unique_ptr<host::ArgDatabase> StandaloneHost::NewArgDatabase(
    const host::Syntax& syntax, const host::Arguments& arguments) {
  return std::make_unique<WordArgDatabase>(syntax, arguments);
}

void StandaloneHost::DisplayError(const std::string& text) {
  sink_({Message::Kind::kError, text, {}, {}});
}

void StandaloneHost::DisplayWarning(const std::string& text) {
  sink_({Message::Kind::kWarning, text, {}, {}});
}

void StandaloneHost::PrintStatus(const host::Status& status, const std::string& label) {
  sink_({Message::Kind::kDiagnostic, status.Description(), label, {}});
}

void StandaloneHost::ShowMessageBox(const std::string& text, const std::string& title,
                                    host::BoxIcon /*icon*/) {
  sink_({Message::Kind::kBox, text, {}, title});
}

void StandaloneHost::WarnOnce(const std::string& text) {
  if (warned_.insert(text).second) DisplayWarning(text);
}

TransformValues StandaloneHost::ValuesNow(
    NodeId node, const std::function<bool(const std::string& attribute)>& counts) {
  // What each driver drives, in the order in which they are met.
  std::vector<std::pair<std::string, std::vector<std::string>>> unread;
  const auto add = [&](const std::string& attribute, const std::string& driver) {
    if (counts && !counts(attribute)) return;
    const auto known = std::find_if(unread.begin(), unread.end(),
                                    [&](const auto& one) { return one.first == driver; });
    (known == unread.end() ? unread.emplace_back(driver, std::vector<std::string>()) : *known)
        .second.push_back(attribute);
  };
  TransformValues values = scene_.ValuesAt(node, currentTime_, add);
  if (unread.empty()) return values;
  std::size_t count = 0;
  for (const auto& one : unread)
    count += one.second.size();
  std::string line = scene_.ShownPath(scene_.FirstPath(node)) + (count == 1 ? "." : ": ");
  for (std::size_t i = 0; i < unread.size(); ++i) {
    const auto& [driver, attributes] = unread[i];
    line += (i > 0 ? "; " : "") + host::ListedChannels(attributes) +
            (attributes.size() == 1 ? " is driven by " : " are driven by ") + ShownName(driver);
  }
  WarnOnce(line +
           (unread.size() == 1 ? ", which is not evaluated: " : ", which are not evaluated: ") +
           (count == 1 ? "its value in the file is used" : "their values in the file are used"));
  return values;
}

void StandaloneHost::WarnShared(NodeId node, Channel channel) {
  // Said of one of the channels it is said of all.
  const std::string& curve = scene_.DriverName(node, channel);
  if (!keyedCurves_.insert(curve).second) return;
  const auto sharers = scene_.SharersOf(node, channel);
  if (sharers.empty()) return;
  const Scene::DrivenChannel& other = sharers.front();
  const std::size_t more = sharers.size() - 1;
  DisplayWarning(AttributePath(node, ChannelName(channel)) + " shares its curve " +
                 ShownName(curve) + " with " +
                 AttributePath(other.node, ChannelName(other.channel)) +
                 (more > 0 ? " and " + std::to_string(more) + " more" : "") +
                 ": keys set on one show on " + (more > 0 ? "all" : "both"));
}

void StandaloneHost::EndCommand() {
  for (const std::string& line : lostKeys_.Lines())
    DisplayWarning(line);
}

std::string StandaloneHost::AttributePath(NodeId node, const std::string& attribute) const {
  return scene_.ShownPath(scene_.FirstPath(node)) + "." + attribute;
}

}  // namespace lipvane::standalone
