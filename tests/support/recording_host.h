#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "lipvane/host/host.h"
#include "lipvane/host/lost_keys.h"
#include "lipvane/host/standalone/words.h"
#include "tests/support/scene_description.h"

namespace lipvane::test {

/// A message as a user would have met it.
struct Shown {
  std::string kind;  ///< "error", "warning", "diagnostic", "box" or "note"
  std::string text;
  std::string label;  ///< a diagnostic's label or a box's title

  friend bool operator==(const Shown& a, const Shown& b) {
    return a.kind == b.kind && a.text == b.text && a.label == b.label;
  }
};

/// A host of plain values that notes every call in order and fails the n-th on demand.
class RecordingHost : public host::Host {
 public:
  explicit RecordingHost(const SceneDescription& scene);

  /// Lets call `n` (from 0, counted over all calls that can fail) fail instead of doing its work.
  void FailCall(std::size_t n) { failing_ = n; }
  /// Lets call `n` and all later ones fail.
  void FailFrom(std::size_t n) {
    failing_ = n;
    failsAllLater_ = true;
  }

  const std::vector<std::string>& Calls() const { return calls_; }
  /// "" for the world and the null node.
  std::string PathOf(const host::Node& node) const;
  /// "|head|jaw.rotateX".
  std::string ChannelOf(const host::Node& node, const host::Attribute& attribute) const;
  /// What drives a channel, in such words, and is no curve; "" when nothing does.
  std::string DriverOf(const std::string& channel) const;
  std::size_t CallsThatCanFail() const { return canFail_; }

  // What the calls did.
  std::vector<Shown> shown;
  std::vector<std::string> selection;
  double currentTime = 1.0;
  /// "|head|jaw.rotateX" -> frame -> value.
  std::map<std::string, std::map<double, double>> curves;
  host::LostKeys lostKeys;

  // host::Host
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
  host::Status SetCurrentTime(double frame) override;
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
  class Iterator;
  class AttachedJoint;
  class Curve;

  /// Notes a call; true when it is the one that shall fail.
  bool Note(const std::string& call);
  void NoteHarmless(const std::string& call) { calls_.push_back(call); }
  const NodeDescription* Describe(const host::Node& node) const;
  std::size_t PlaceOf(const std::string& path) const;

  SceneDescription scene_;  // in the order of the walk, the world (an empty path) first
  std::vector<std::string> calls_;
  std::size_t canFail_ = 0;
  std::optional<std::size_t> failing_;
  bool failsAllLater_ = false;
};

/// The words of a command line as a command gets them.
using Words = standalone::WordArguments;

}  // namespace lipvane::test
