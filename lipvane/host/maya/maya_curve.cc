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
  if (!status.ok() && channel != nullptr && !object.isNull())
    status = AttachToInput(object, *channel);
  attached_ = status.ok();
  return status;
}

host::Status MayaCurve::AttachToInput(MObject& node, const AttributeHandle& attribute) {
  const std::string channel =
      std::string(MFnDagNode(node).fullPathName().asChar()) + "." + attribute.name;
  MPlugArray sources;
  MPlug(node, attribute.object).connectedTo(sources, true, false);
  if (sources.length() == 0) {
    host_.WarnOnce(channel +
                   " takes no curve (it is locked, or its compound is driven): it gets no curve "
                   "and no keys");
    return host::StatusCode::kFailure;
  }
  MObject driver = sources[0].node();
  if (ToStatus(curve_.setObject(driver)).ok() && curve_.isTimeInput()) return {};
  host_.WarnOnce(channel + " is driven by " + MFnDependencyNode(driver).name().asChar() +
                 " (not a curve over time): it gets no curve and no keys");
  return host::StatusCode::kFailure;
}

host::Status MayaCurve::AddKeyframe(double frame, double value) {
  if (!attached_) return host::StatusCode::kFailure;
  MTime time;  // in the time line's own unit
  time.setValue(frame);
  return ToStatus(curve_.addKeyframe(time, value));
}

}  // namespace lipvane::maya
