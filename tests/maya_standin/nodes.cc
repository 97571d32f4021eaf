// Nodes and paths, the walk, and what a node's matrix tells.

#include <maya/MDagPath.h>
#include <maya/MFnBase.h>
#include <maya/MFnDagNode.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnIkJoint.h>
#include <maya/MFnTransform.h>
#include <maya/MItDag.h>
#include <maya/MTransformationMatrix.h>

#include <array>
#include <cstddef>
#include <set>
#include <string>

#include "tests/maya_standin/content.h"

namespace lipvane_standin {

namespace host = lipvane::host;
using standin::Answer;
using standin::Content;
using standin::Host;
using standin::ToMStatus;

namespace {

host::Matrix FromMMatrix(const MMatrix& matrix) {
  host::Matrix result;
  for (std::size_t row = 0; row < 4; ++row) {
    for (std::size_t column = 0; column < 4; ++column)
      result[row][column] = matrix.matrix[row][column];
  }
  return result;
}

MMatrix FromMatrix(const host::Matrix& matrix) {
  double elements[4][4];
  for (std::size_t row = 0; row < 4; ++row) {
    for (std::size_t column = 0; column < 4; ++column)
      elements[row][column] = matrix[row][column];
  }
  return MMatrix(elements);
}

/// Attributes of nodes that are not in the DAG.
bool HasOwn(const MObject& object, const std::string& attribute) {
  if (object.isNull()) return false;
  if (object.Held()->kind == Content::Kind::kCurve) return attribute == "input";
  static const std::set<std::string> elements = {"linearValues", "angularValues", "unitlessValues",
                                                 "timeValues"};
  return object.Held()->type == "character" && elements.count(attribute) != 0;
}

}  // namespace

MFnBase::MFnBase() = default;
MFnBase::~MFnBase() = default;
MObject MFnBase::object(MStatus* status) const {
  Answer(status, object_.isNull() ? MStatus::kFailure : MStatus::kSuccess);
  return object_;
}
MStatus MFnBase::setObject(MObject& object) {
  if (!Takes(object)) return MStatus::kInvalidParameter;
  object_ = object;
  return MStatus::kSuccess;
}
bool MFnBase::Takes(const MObject& object) const {
  return !object.isNull();
}

MFnDependencyNode::MFnDependencyNode(MObject& object, MStatus* status) {
  Answer(status, setObject(object));
}
MFnDependencyNode::~MFnDependencyNode() = default;
MString MFnDependencyNode::name(MStatus* status) const {
  Answer(status, object_.isNull() ? MStatus::kFailure : MStatus::kSuccess);
  if (object_.isNull()) return {};
  if (object_.Held()->kind != Content::Kind::kNode) return object_.Held()->name.c_str();
  return Host().NodeName(object_.Held()->node).c_str();
}
MObject MFnDependencyNode::attribute(const MString& name, MStatus* status) const {
  Content content;
  content.kind = Content::Kind::kAttribute;
  content.attribute = Host().FindAttribute(standin::NodeOf(object_), name.asChar());
  const bool found = content.attribute.object.has_value() || HasOwn(object_, name.asChar());
  Answer(status, found ? MStatus::kSuccess : MStatus::kInvalidParameter);
  return found ? MObject(std::make_shared<const Content>(content)) : MObject();
}

MFnDagNode::MFnDagNode() = default;
MFnDagNode::MFnDagNode(MObject& object, MStatus* status) {
  Answer(status, setObject(object));
}
MFnDagNode::MFnDagNode(const MDagPath& path, MStatus* status) {
  host::Node node;
  Answer(status, path.Held() == nullptr ? MStatus(MStatus::kFailure)
                                        : ToMStatus(Host().AttachDagNode(path.Held()->path, node)));
  object_ = standin::ObjectOf(node);
}
MFnDagNode::~MFnDagNode() = default;
MObject MFnDagNode::parent(unsigned int index, MStatus* status) const {
  const host::Node node = Host().ParentOf(standin::NodeOf(object_), index);
  Answer(status, node.object.has_value() ? MStatus::kSuccess : MStatus::kInvalidParameter);
  return standin::ObjectOf(node);
}
MMatrix MFnDagNode::transformationMatrix(MStatus* status) const {
  host::Matrix matrix{};
  Answer(status, ToMStatus(Host().LocalMatrix(standin::NodeOf(object_), matrix)));
  return FromMatrix(matrix);
}
MString MFnDagNode::fullPathName(MStatus* status) const {
  Answer(status, MStatus::kSuccess);
  return lipvane::test::Standin::Current().scene.FullPath(standin::NodeOf(object_)).c_str();
}

MFnTransform::MFnTransform() = default;
MFnTransform::~MFnTransform() = default;

MFnIkJoint::MFnIkJoint(MObject& object, MStatus* status) {
  host::Status attached;
  joint_ = Host().AttachJoint(standin::NodeOf(object), attached);
  if (attached.ok()) object_ = object;
  Answer(status, ToMStatus(attached));
}
MFnIkJoint::~MFnIkJoint() = default;
MStatus MFnIkJoint::getOrientation(MQuaternion& quaternion) const {
  if (joint_ == nullptr) return MStatus::kFailure;
  host::Rotation rotation;
  const host::Status status = joint_->GetOrientation(rotation);
  if (status.ok()) {
    quaternion.x = rotation.x;
    quaternion.y = rotation.y;
    quaternion.z = rotation.z;
    quaternion.w = rotation.w;
  }
  return ToMStatus(status);
}

MObject MDagPath::transform(MStatus* status) const {
  host::Node node;
  Answer(status, content_ == nullptr ? MStatus(MStatus::kInvalidParameter)
                                     : ToMStatus(Host().TransformOf(content_->path, node)));
  return standin::ObjectOf(node);
}

MItDag::MItDag(TraversalType type, MFn::Type filter, MStatus* status) {
  if (type != kDepthFirst || filter != MFn::kInvalid) {
    Answer(status, MStatus::kFailure);  // the scene behind has no other walk
    return;
  }
  host::Status begun;
  iterator_ = Host().NewDagIterator(begun);
  Answer(status, ToMStatus(begun));
}
bool MItDag::isDone(MStatus* status) const {
  Answer(status, MStatus::kSuccess);
  return iterator_ == nullptr || iterator_->IsDone();
}
MStatus MItDag::next() {
  iterator_->Next();
  return MStatus::kSuccess;
}
MStatus MItDag::getPath(MDagPath& path) const {
  Content content;
  const host::Status status = iterator_->GetPath(content.path);
  if (status.ok()) path = MDagPath(std::make_shared<const Content>(content));
  return ToMStatus(status);
}

MTransformationMatrix::MTransformationMatrix(const MMatrix& matrix) : matrix_(matrix) {}
MMatrix MTransformationMatrix::asMatrix() const {
  return matrix_;
}
MVector MTransformationMatrix::getTranslation(MSpace::Space space, MStatus* status) const {
  Answer(status, MStatus::kSuccess);
  if (space != MSpace::kWorld) return {};  // other spaces know of pivots, which are not behind this
  return {matrix_.matrix[3][0], matrix_.matrix[3][1], matrix_.matrix[3][2]};
}
MStatus MTransformationMatrix::getScale(double scale[3], MSpace::Space space) const {
  if (space != MSpace::kWorld) return MStatus::kFailure;
  const host::Transformation split = Host().Decompose(FromMMatrix(matrix_));
  for (std::size_t axis = 0; axis < 3; ++axis)
    scale[axis] = split.scale[axis];
  return MStatus::kSuccess;
}
MStatus MTransformationMatrix::getRotation(double rotation[3], RotationOrder& order) const {
  const std::array<double, 3> angles = Host().EulerAngles(FromMMatrix(matrix_));
  for (std::size_t axis = 0; axis < 3; ++axis)
    rotation[axis] = angles[axis];
  order = kXYZ;
  return MStatus::kSuccess;
}

}  // namespace lipvane_standin
