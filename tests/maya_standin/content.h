#pragma once

#include <maya/MObject.h>
#include <maya/MStatus.h>

#include <cstddef>
#include <memory>
#include <string>

#include "lipvane/host/host.h"
#include "tests/maya_standin/standin.h"

namespace lipvane_standin::standin {

/// What an object or a path stands for.
struct Content {
  enum class Kind { kPlugin, kNode, kAttribute, kCurve, kOtherNode };
  Kind kind = Kind::kNode;
  lipvane::host::Node node;            ///< the node, or the one that a curve drives
  lipvane::host::Attribute attribute;  ///< the attribute, or the one that a curve drives
  lipvane::host::DagPath path;
  std::string name;      ///< of a node that is not in the DAG
  std::string type;      ///< of a node between a channel and its curve
  std::size_t step = 0;  ///< how many such nodes lie between it and the channel
  bool isTimeCurve = false;
};

inline lipvane::host::Host& Host() {
  return lipvane::test::Standin::Current().scene.Host();
}

inline MStatus ToMStatus(const lipvane::host::Status& status) {
  return static_cast<MStatus::MStatusCode>(status.code());
}

/// Gives a status to whoever asked for one.
inline void Answer(MStatus* asked, const MStatus& status) {
  if (asked != nullptr) *asked = status;
}

inline MObject ObjectOf(const lipvane::host::Node& node) {
  if (!node.object.has_value()) return {};
  Content content;
  content.node = node;
  return MObject(std::make_shared<const Content>(content));
}

/// The node that an object stands for; the null node when it stands for something else.
inline lipvane::host::Node NodeOf(const MObject& object) {
  if (object.isNull() || object.Held()->kind != Content::Kind::kNode) return {};
  return object.Held()->node;
}

inline lipvane::host::Attribute AttributeOf(const MObject& object) {
  if (object.isNull() || object.Held()->kind != Content::Kind::kAttribute) return {};
  return object.Held()->attribute;
}

}  // namespace lipvane_standin::standin
