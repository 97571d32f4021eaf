#pragma once

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "lipvane/host/host.h"
#include "lipvane/host/lost_keys.h"
#include "lipvane/host/standalone/message.h"
#include "lipvane/host/standalone/name_pattern.h"
#include "lipvane/host/standalone/scene.h"

namespace lipvane::standalone {

/// The embedded host: what the commands ask for, done on a scene in memory. What the scene cannot
/// evaluate or will not take is a warning that names it, once a command.
class StandaloneHost : public host::Host {
 public:
  /// The scene must outlive the host and keep its nodes.
  StandaloneHost(Scene& scene, MessageSink sink);

  /// Lets the warnings that come once a command come again, and names be searched for anew.
  void BeginCommand() {
    warned_.clear();
    keyedCurves_.clear();
    keyedNodes_.clear();
    lostKeys_.Clear();
    pathsMatched_ = 0;
  }
  /// Warns of keys that the command lost.
  void EndCommand();

  /// Whether the command that runs, or ran last, set a key on the node.
  bool IsKeyed(NodeId node) const { return keyedNodes_.count(node) > 0; }

  /// Names of nodes are taken within this namespace from now on, as in a host that shows names
  /// relative to its current one: "jaw" is hero:jaw, ":jaw" the one outside. "" is the root.
  void SetNamespace(std::string nameSpace) { nameSpace_ = std::move(nameSpace); }
  const std::string& Namespace() const { return nameSpace_; }

  const Scene& GetScene() const { return scene_; }
  Scene& GetScene() { return scene_; }
  double CurrentTime() const { return currentTime_; }
  /// In the order in which they were selected.
  const std::vector<PathId>& Selection() const { return selection_; }

  /// What this host's handles stand for, for those who know the scene too; nothing for the null
  /// node or attribute.
  static std::optional<NodeId> IdOf(const host::Node& node);
  static std::optional<Channel> ChannelOf(const host::Attribute& attribute);

  /// Every path that the pattern names, in the order of the walk.
  std::vector<PathId> FindPaths(const NamePattern& pattern);
  /// Paths that are selected already stay where they are.
  void Select(const std::vector<PathId>& paths, host::ListAdjustment adjustment);

  std::unique_ptr<host::DagIterator> NewDagIterator(host::Status& status) override;
  host::Status AttachDagNode(const host::DagPath& path, host::Node& node) override;
  host::Status TransformOf(const host::DagPath& path, host::Node& transform) override;
  std::string NodeName(const host::Node& node) override;
  host::Node ParentOf(const host::Node& node, unsigned index) override;
  host::Attribute FindAttribute(const host::Node& node, const std::string& name) override;

  host::Status LocalMatrix(const host::Node& transform, host::Matrix& matrix) override;
  host::Transformation Decompose(const host::Matrix& matrix) override;
  std::array<double, 3> EulerAngles(const host::Matrix& matrix) override;
  std::unique_ptr<host::Joint> AttachJoint(const host::Node& node, host::Status& status) override;

  std::unique_ptr<host::AnimCurve> NewAnimCurve() override;
  /// Fails, with the time left alone, when the frame is not finite.
  host::Status SetCurrentTime(double frame) override;

  /// The name is a pattern; fails when nothing matches, with the selection left alone.
  host::Status SelectByName(const std::string& name, host::ListAdjustment adjustment) override;
  host::Status GetSelectionLength(unsigned& length) override;
  host::Status ClearSelection() override;

  std::unique_ptr<host::ArgDatabase> NewArgDatabase(const host::Syntax& syntax,
                                                    const host::Arguments& arguments) override;

  void DisplayError(const std::string& text) override;
  void DisplayWarning(const std::string& text) override;
  void PrintStatus(const host::Status& status, const std::string& label) override;
  void ShowMessageBox(const std::string& text, const std::string& title,
                      host::BoxIcon icon) override;

 private:
  class SceneJoint;
  class SceneCurve;

  void WarnOnce(const std::string& text);
  /// Before the first key of a channel: others may show it too.
  void WarnShared(NodeId node, Channel channel);
  /// The node's values now. Warns, once a node, of those that count and are not evaluated; all of
  /// them count that `counts` does not leave out.
  TransformValues ValuesNow(NodeId node,
                            const std::function<bool(const std::string& attribute)>& counts = {});
  std::string AttributePath(NodeId node, const std::string& attribute) const;

  Scene& scene_;
  MessageSink sink_;
  double currentTime_;
  std::string nameSpace_;
  std::vector<PathId> selection_;
  std::set<PathId> selected_;  // the same paths
  std::set<std::string> warned_;
  // By the command that runs.
  std::set<std::string> keyedCurves_;
  std::set<NodeId> keyedNodes_;
  host::LostKeys lostKeys_;
  std::size_t pathsMatched_ = 0;
  std::unordered_map<std::string_view, std::vector<PathId>> pathsByName_;  // made when first needed
};

}  // namespace lipvane::standalone
