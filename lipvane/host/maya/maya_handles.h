#pragma once

#include <maya/MDagPath.h>
#include <maya/MObject.h>

#include <any>
#include <string>

#include "lipvane/host/host.h"

/// What the handles of the host interface hold here; a node holds its MObject.
namespace lipvane::maya {

/// A path, in a type of our own: the host does not have to have a typeinfo for its own then.
struct PathHandle {
  MDagPath path;
};

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
