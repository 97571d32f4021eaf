#pragma once

#include <optional>
#include <string_view>

#include "lipvane/host/standalone/curve.h"

namespace lipvane::standalone {

/// What commands call a tangent type ("auto", "stepnext"); empty for fixed tangents, which need
/// more than a name.
std::string_view TangentName(Tangent tangent);

/// The type of that name, or nothing.
std::optional<Tangent> TangentNamed(std::string_view name);

}  // namespace lipvane::standalone
