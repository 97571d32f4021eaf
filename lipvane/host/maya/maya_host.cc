#include "lipvane/host/maya/maya_host.h"

#include <maya/MAnimControl.h>
#include <maya/MDagPath.h>
#include <maya/MFn.h>
#include <maya/MFnDagNode.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnIkJoint.h>
#include <maya/MGlobal.h>
#include <maya/MItDag.h>
#include <maya/MMatrix.h>
#include <maya/MObject.h>
#include <maya/MPxCommand.h>
#include <maya/MQuaternion.h>
#include <maya/MSelectionList.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MTime.h>
#include <maya/MTransformationMatrix.h>
#include <maya/MTypes.h>
#include <maya/MVector.h>

#include <any>
#include <cstddef>

#include "lipvane/host/maya/maya_arguments.h"
#include "lipvane/host/maya/maya_curve.h"
#include "lipvane/host/maya/maya_handles.h"
#include "lipvane/host/maya/maya_status.h"
#include "lipvane/host/maya/message_box.h"

namespace lipvane::maya {
namespace {

MDagPath PathOf(const host::DagPath& path) {
  const auto* held = std::any_cast<PathHandle>(&path.object);
  return held == nullptr ? MDagPath() : held->path;
}

MMatrix ToMMatrix(const host::Matrix& matrix) {
  double elements[4][4];
  for (std::size_t row = 0; row < 4; ++row) {
    for (std::size_t column = 0; column < 4; ++column)
      elements[row][column] = matrix[row][column];
  }
  return MMatrix(elements);
}

host::Matrix ToMatrix(const MMatrix& matrix) {
  host::Matrix result;
  for (std::size_t row = 0; row < 4; ++row) {
    for (std::size_t column = 0; column < 4; ++column)
      result[row][column] = matrix.matrix[row][column];
  }
  return result;
}

// Releases since 2019 have getTranslation and deprecate translation; those before have only that.
template <typename Transformation>
auto TranslationOf(const Transformation& transformation, int /*preferred*/)
    -> decltype(transformation.getTranslation(MSpace::kWorld)) {
  return transformation.getTranslation(MSpace::kWorld);
}
template <typename Transformation>
MVector TranslationOf(const Transformation& transformation, long /*otherwise*/) {
  return transformation.translation(MSpace::kWorld);
}

class MayaDagIterator : public host::DagIterator {
 public:
  explicit MayaDagIterator(MStatus& status)
      : iterator_(MItDag::kDepthFirst, MFn::kInvalid, &status) {}

  bool IsDone() const override { return iterator_.isDone(); }
  void Next() override { iterator_.next(); }
  host::Status GetPath(host::DagPath& path) const override {
    MDagPath found;
    const host::Status status = ToStatus(iterator_.getPath(found));
    if (status.ok()) path.object = PathHandle{found};
    return status;
  }

 private:
  MItDag iterator_;
};

class MayaJoint : public host::Joint {
 public:
  MayaJoint(MObject& node, MStatus& status) : joint_(node, &status) {}

  host::Status GetOrientation(host::Rotation& orientation) const override {
    MQuaternion quaternion;
    const host::Status status = ToStatus(joint_.getOrientation(quaternion));
    if (status.ok()) orientation = {quaternion.w, quaternion.x, quaternion.y, quaternion.z};
    return status;
  }

 private:
  MFnIkJoint joint_;
};

}  // namespace

std::unique_ptr<host::DagIterator> MayaHost::NewDagIterator(host::Status& status) {
  MStatus begun;
  auto iterator = std::make_unique<MayaDagIterator>(begun);
  status = ToStatus(begun);
  if (!status.ok()) iterator.reset();
  return iterator;
}

host::Status MayaHost::AttachDagNode(const host::DagPath& path, host::Node& node) {
  MStatus status;
  const MFnDagNode dagNode(PathOf(path), &status);
  if (ToStatus(status).ok()) node.object = dagNode.object();
  return ToStatus(status);
}

host::Status MayaHost::TransformOf(const host::DagPath& path, host::Node& transform) {
  MStatus status;
  const MObject found = PathOf(path).transform(&status);
  if (ToStatus(status).ok()) transform.object = found;
  return ToStatus(status);
}

std::string MayaHost::NodeName(const host::Node& node) {
  MObject object = ObjectOf(node);
  if (object.isNull()) return {};
  return MFnDependencyNode(object).name().asChar();
}

host::Node MayaHost::ParentOf(const host::Node& node, unsigned index) {
  MObject object = ObjectOf(node);
  MStatus status;
  const MObject parent = MFnDagNode(object).parent(index, &status);
  if (!ToStatus(status).ok()) return {};
  return {parent};
}

host::Attribute MayaHost::FindAttribute(const host::Node& node, const std::string& name) {
  MObject object = ObjectOf(node);
  MStatus status;
  const MObject attribute = MFnDependencyNode(object).attribute(MString(name.c_str()), &status);
  if (!ToStatus(status).ok()) return {};
  return {AttributeHandle{attribute, name}};
}

host::Status MayaHost::LocalMatrix(const host::Node& transform, host::Matrix& matrix) {
  MObject object = ObjectOf(transform);
  MStatus status;
  const MFnDagNode dagNode(object, &status);
  if (!ToStatus(status).ok()) return ToStatus(status);
  const MMatrix local = dagNode.transformationMatrix(&status);
  if (ToStatus(status).ok()) matrix = ToMatrix(local);
  return ToStatus(status);
}

host::Transformation MayaHost::Decompose(const host::Matrix& matrix) {
  const MTransformationMatrix transformation(ToMMatrix(matrix));
  host::Transformation result;
  result.matrix = ToMatrix(transformation.asMatrix());
  const MVector translation = TranslationOf(transformation, 0);
  result.translation = {translation.x, translation.y, translation.z};
  double scale[3] = {0.0, 0.0, 0.0};
  transformation.getScale(scale, MSpace::kWorld);
  result.scale = {scale[0], scale[1], scale[2]};
  return result;
}

std::array<double, 3> MayaHost::EulerAngles(const host::Matrix& matrix) {
  double angles[3] = {0.0, 0.0, 0.0};
  MTransformationMatrix::RotationOrder order = MTransformationMatrix::kXYZ;
  MTransformationMatrix(ToMMatrix(matrix)).getRotation(angles, order);
  return {angles[0], angles[1], angles[2]};
}

std::unique_ptr<host::Joint> MayaHost::AttachJoint(const host::Node& node, host::Status& status) {
  MObject object = ObjectOf(node);
  MStatus attached;
  auto joint = std::make_unique<MayaJoint>(object, attached);
  status = ToStatus(attached);
  if (!status.ok()) joint.reset();
  return joint;
}

std::unique_ptr<host::AnimCurve> MayaHost::NewAnimCurve() {
  return std::make_unique<MayaCurve>(*this);
}

host::Status MayaHost::SetCurrentTime(double frame) {
  MTime time;  // in the time line's own unit
  time.setValue(frame);
  return ToStatus(MAnimControl::setCurrentTime(time));
}

host::Status MayaHost::SelectByName(const std::string& name, host::ListAdjustment adjustment) {
  return ToStatus(
      MGlobal::selectByName(name.c_str(), static_cast<MGlobal::ListAdjustment>(adjustment)));
}

host::Status MayaHost::GetSelectionLength(unsigned& length) {
  MSelectionList selection;
  const host::Status status = ToStatus(MGlobal::getActiveSelectionList(selection));
  if (status.ok()) length = selection.length();
  return status;
}

host::Status MayaHost::ClearSelection() {
  return ToStatus(MGlobal::clearSelectionList());
}

std::unique_ptr<host::ArgDatabase> MayaHost::NewArgDatabase(const host::Syntax& syntax,
                                                            const host::Arguments& arguments) {
  return std::make_unique<MayaArgDatabase>(syntax, dynamic_cast<const MayaArguments&>(arguments));
}

void MayaHost::DisplayError(const std::string& text) {
  MPxCommand::displayError(text.c_str());
}

void MayaHost::DisplayWarning(const std::string& text) {
  MPxCommand::displayWarning(text.c_str());
}

void MayaHost::PrintStatus(const host::Status& status, const std::string& label) {
  ToMStatus(status).perror(label.c_str());
}

void MayaHost::ShowMessageBox(const std::string& text, const std::string& title,
                              host::BoxIcon icon) {
  maya::ShowMessageBox(text, title, icon);
}

void MayaHost::WarnOfLostKeys() {
  for (const std::string& line : keys_.Lines())
    DisplayWarning(line);
}

}  // namespace lipvane::maya
