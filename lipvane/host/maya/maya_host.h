#pragma once

#include <array>
#include <memory>
#include <string>

#include "lipvane/host/host.h"
#include "lipvane/host/lost_keys.h"

namespace lipvane::maya {

/// Maya as the commands see it: each operation is the call of the host's API that does it. One
/// lives for one invocation of a command.
class MayaHost : public host::Host {
 public:
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
  /// Frames of the time line, at whatever rate the scene has.
  host::Status SetCurrentTime(double frame) override;

  host::Status SelectByName(const std::string& name, host::ListAdjustment adjustment) override;
  host::Status GetSelectionLength(unsigned& length) override;
  host::Status ClearSelection() override;

  /// `arguments` are those that the command was called with.
  std::unique_ptr<host::ArgDatabase> NewArgDatabase(const host::Syntax& syntax,
                                                    const host::Arguments& arguments) override;

  void DisplayError(const std::string& text) override;
  void DisplayWarning(const std::string& text) override;
  void PrintStatus(const host::Status& status, const std::string& label) override;
  void ShowMessageBox(const std::string& text, const std::string& title,
                      host::BoxIcon icon) override;

  /// What became of the invocation's keys.
  host::LostKeys& Keys() { return keys_; }
  /// Warns of keys that were lost; at the end of an invocation.
  void WarnOfLostKeys();

 private:
  host::LostKeys keys_;
};

}  // namespace lipvane::maya
