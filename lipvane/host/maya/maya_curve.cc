#include "lipvane/host/maya/maya_curve.h"

#include <maya/MFnDagNode.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MPlug.h>
#include <maya/MPlugArray.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MTime.h>

#include <any>
#include <cstring>
#include <string>

#include "lipvane/host/maya/maya_host.h"
#include "lipvane/host/maya/maya_status.h"

namespace lipvane::maya {
namespace {

/// Nodes that a channel's curve may be behind; connections may form a ring.
constexpr int kMaxDriverSteps = 256;

bool IsCharacterSet(MObject& node) {
  const MFnDependencyNode set(node);
  for (const char* element : {"linearValues", "angularValues", "unitlessValues", "timeValues"}) {
    if (set.attribute(element).isNull()) return false;
  }
  return true;
}

/// The node that drives a plug; the null object when none does. A character set passes on what
/// drives its element. Deliberate: a unit conversion is not followed, since the calls we know of do
/// not tell its factor, and without that no key would have the right value. The embedded host reads
/// the factor in the file, and sets such keys.
MObject DriverOf(const MPlug& plug, int stepsLeft = kMaxDriverSteps) {
  MPlugArray sources;
  plug.connectedTo(sources, true, false);
  if (sources.length() == 0) return {};
  MObject node = sources[0].node();
  if (stepsLeft == 0 || !IsCharacterSet(node)) return node;
  MObject behind = DriverOf(sources[0], stepsLeft - 1);
  return behind.isNull() ? node : behind;
}

/// Whether a curve is not at the scene's time but at one that something makes of it.
bool IsRetimed(MObject& curve) {
  MObject driver = DriverOf(MPlug(curve, MFnDependencyNode(curve).attribute("input")));
  return !driver.isNull() && std::strcmp(MFnDependencyNode(driver).name().asChar(), "time1") != 0;
}

// What is done to a compound is done to each of its three channels.

bool IsLocked(const MPlug& channel) {
  return channel.isLocked() || (channel.isChild() && channel.parent().isLocked());
}

MObject DriverOfChannel(const MPlug& channel) {
  MObject driver = DriverOf(channel);
  return driver.isNull() && channel.isChild() ? DriverOf(channel.parent()) : driver;
}

}  // namespace

host::Status MayaCurve::Create(const host::Node& node, const host::Attribute& attribute) {
  MObject object = ObjectOf(node);
  const auto* channel = std::any_cast<AttributeHandle>(&attribute.object);
  MStatus created;
  curve_.create(object, channel == nullptr ? MObject() : channel->object, nullptr, &created);
  host::Status status = ToStatus(created);
  node_.emplace(object);
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
  if (IsLocked(plug)) return refuse("locked");
  MObject driver = DriverOfChannel(plug);
  if (driver.isNull()) return refuse("refused by the host");
  if (ToStatus(curve_.setObject(driver)).ok() && curve_.isTimeInput() && !IsRetimed(driver))
    return {};
  return refuse(std::string("driven by ") + MFnDependencyNode(driver).name().asChar() +
                " (not a curve over time)");
}

host::Status MayaCurve::AddKeyframe(double frame, double value) {
  if (!isReported_) {
    isReported_ = true;
    const std::string path = MFnDagNode(*node_).fullPathName().asChar();
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
