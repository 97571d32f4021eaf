#pragma once

#include <maya/MObject.h>

#include <any>
#include <string>

#include "lipvane/host/host.h"

/// What the handles of the host interface hold here: a node its MObject, a path its MDagPath.
namespace lipvane::maya {

/// An attribute, with its long name for messages.
struct AttributeHandle {
  MObject object;
  std::string name;
};

/// The null object for a null node.
inline MObject ObjectOf(const host::Node& node) {
  const auto* object = std::any_cast<MObject>(&node.object);
  return object == nullptr ? MObject() : *object;
}

}  // namespace lipvane::maya
