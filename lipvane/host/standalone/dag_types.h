#pragma once

#include <string_view>

/// What is known of the types of nodes in the DAG.
namespace lipvane::standalone {

/// A transform wherever it stands.
bool IsTransformType(std::string_view name);

/// No transform, whatever its attributes are called.
bool IsShapeType(std::string_view name);

}  // namespace lipvane::standalone
