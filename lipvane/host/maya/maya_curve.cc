#include "lipvane/host/maya/maya_curve.h"

#include <maya/MFnDagNode.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MPlug.h>
#include <maya/MPlugArray.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MTime.h>

#include <any>
#include <string>

#include "lipvane/host/maya/maya_host.h"
#include "lipvane/host/maya/maya_status.h"

namespace lipvane::maya {

host::Status MayaCurve::Create(const host::Node& node, const host::Attribute& attribute) {
  MObject object = ObjectOf(node);
  const auto* channel = std::any_cast<AttributeHandle>(&attribute.object);
  MStatus created;
  curve_.create(object, channel == nullptr ? MObject() : channel->object, nullptr, &created);
  host::Status status = ToStatus(created);
  node_ = object;
  channel_ = channel == nullptr ? std::string() : channel->name;
  isReported_ = channel == nullptr || object.isNull();
  if (!status.ok() && !isReported_) status = AttachToInput(object, *channel);
  attached_ = status.ok();
  return status;
}

host::Status MayaCurve::AttachToInput(MObject& node, const AttributeHandle& attribute) {
  const auto refuse = [this](const std::string& reason) -> host::Status {
    refusal_ = reason;
    return host::StatusCode::kFailure;
  };
  const MPlug plug(node, attribute.object);
  if (plug.isLocked()) return refuse("locked");
  MPlugArray sources;
  plug.connectedTo(sources, true, false);
  if (sources.length() == 0 && plug.isChild()) plug.parent().connectedTo(sources, true, false);
  if (sources.length() == 0) return refuse("refused by the host");
  MObject driver = sources[0].node();
  if (ToStatus(curve_.setObject(driver)).ok() && curve_.isTimeInput()) return {};
  return refuse(std::string("driven by ") + MFnDependencyNode(driver).name().asChar() +
                " (not a curve over time)");
}

host::Status MayaCurve::AddKeyframe(double frame, double value) {
  if (!isReported_) {
    isReported_ = true;
    const std::string path = MFnDagNode(node_).fullPathName().asChar();
    if (attached_) {
      host_.Keys().AddKeyed(path);
    } else {
      host_.Keys().AddLost(path, channel_, refusal_);
    }
  }
  if (!attached_) return host::StatusCode::kFailure;
  MTime time;  // in the time line's own unit
  time.setValue(frame);
  return ToStatus(curve_.addKeyframe(time, value));
}

}  // namespace lipvane::maya
