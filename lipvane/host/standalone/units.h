#pragma once

#include <optional>
#include <string_view>

namespace lipvane::standalone {

inline constexpr double kRadiansPerDegree = 3.14159265358979323846 / 180.0;

/// Frames a second of a time unit ("film", "ntsc", "29.97fps", "sec" ...), or nothing.
std::optional<double> FramesPerSecondOf(std::string_view unit);

/// Centimetres in a linear unit, by its short or long name, or nothing.
std::optional<double> CentimetresIn(std::string_view unit);

/// Radians in an angular unit, by its short or long name, or nothing.
std::optional<double> RadiansIn(std::string_view unit);

}  // namespace lipvane::standalone
