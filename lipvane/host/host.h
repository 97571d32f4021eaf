#pragma once

#include <any>
#include <array>
#include <memory>
#include <string>

#include "lipvane/host/arguments.h"
#include "lipvane/host/status.h"
#include "lipvane/host/syntax.h"

/// What a 3D host must offer to the commands, and no more. Every operation stands for one call of
/// the host; the logic lives above. Matrices are for row vectors (translation in row 3),
/// lengths in centimetres, angles in radians, times in frames of the scene's own time line.
namespace lipvane::host {

using Matrix = std::array<std::array<double, 4>, 4>;

/// A unit quaternion, scalar first.
struct Rotation {
  double w = 1.0;
  double x = 0.0;
  double y = 0.0;
  double z = 0.0;
};

/// A node of the scene, held by value. What is inside is the host's own affair; a default-made
/// node is the null object.
struct Node {
  std::any object;
};

/// An attribute of a kind of node; default-made when the node has none of that name.
struct Attribute {
  std::any object;
};

/// A way from the scene's root down to a node.
struct DagPath {
  std::any object;
};

/// A depth-first walk over every node of the scene, the root first.
class DagIterator {
 public:
  virtual ~DagIterator() = default;
  virtual bool IsDone() const = 0;
  virtual void Next() = 0;
  virtual Status GetPath(DagPath& path) const = 0;
};

/// What the host makes of a transformation matrix.
struct Transformation {
  Matrix matrix{};
  std::array<double, 3> translation{};
  std::array<double, 3> scale{};
};

/// A joint of the scene.
class Joint {
 public:
  virtual ~Joint() = default;
  /// `orientation` is left alone on failure.
  virtual Status GetOrientation(Rotation& orientation) const = 0;
};

/// A handle on an animation curve; attached to nothing until `Create` succeeds. Destroying it
/// leaves the curve in the scene.
class AnimCurve {
 public:
  virtual ~AnimCurve() = default;
  /// Makes a curve that drives the attribute of the node, the kind chosen from the attribute. A
  /// channel that a curve over time drives already keeps that curve, and the handle takes it. After
  /// a failure the handle is attached to nothing.
  virtual Status Create(const Node& node, const Attribute& attribute) = 0;
  /// Adds a key, or replaces the one at that frame. Radians and centimetres.
  virtual Status AddKeyframe(double frame, double value) = 0;
};

enum class BoxIcon { kInformation, kExclamation };

/// How a selection by name changes the selection.
enum class ListAdjustment { kReplaceList = 0, kAddToList = 2 };

class Host {
 public:
  virtual ~Host() = default;

  // The scene's nodes.
  /// A walk that stands at the root; null when `status` is not success.
  virtual std::unique_ptr<DagIterator> NewDagIterator(Status& status) = 0;
  /// The node at the end of a path.
  virtual Status AttachDagNode(const DagPath& path, Node& node) = 0;
  /// The lowest transform on a path (a shape's parent).
  virtual Status TransformOf(const DagPath& path, Node& transform) = 0;
  /// The short name, namespaces included; empty for the null object.
  virtual std::string NodeName(const Node& node) = 0;
  /// Parent `index` in the scene; the null object when there is none.
  virtual Node ParentOf(const Node& node, unsigned index) = 0;
  virtual Attribute FindAttribute(const Node& node, const std::string& name) = 0;

  // Transforms and joints.
  /// The local matrix at the current time. Fails for the null object.
  virtual Status LocalMatrix(const Node& transform, Matrix& matrix) = 0;
  virtual Transformation Decompose(const Matrix& matrix) = 0;
  /// Euler angles of the matrix's rotation about x, then y, then z.
  virtual std::array<double, 3> EulerAngles(const Matrix& matrix) = 0;
  /// The node as a joint; null when `status` is not success, as for a node that is none.
  virtual std::unique_ptr<Joint> AttachJoint(const Node& node, Status& status) = 0;

  // Animation.
  virtual std::unique_ptr<AnimCurve> NewAnimCurve() = 0;
  virtual Status SetCurrentTime(double frame) = 0;

  // Selection.
  virtual Status SelectByName(const std::string& name, ListAdjustment adjustment) = 0;
  /// How many items are selected.
  virtual Status GetSelectionLength(unsigned& length) = 0;
  virtual Status ClearSelection() = 0;

  // Arguments.
  virtual std::unique_ptr<ArgDatabase> NewArgDatabase(const Syntax& syntax,
                                                      const Arguments& arguments) = 0;

  // Messages.
  virtual void DisplayError(const std::string& text) = 0;
  virtual void DisplayWarning(const std::string& text) = 0;
  /// Prints the label and the host's description of the status.
  virtual void PrintStatus(const Status& status, const std::string& label) = 0;
  /// A modal box with one button.
  virtual void ShowMessageBox(const std::string& text, const std::string& title, BoxIcon icon) = 0;
};

}  // namespace lipvane::host
