#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>

/// Where things stand in the files, for whoever looks at their lines.
namespace lipvane {

/// The numbers of a bone line: a matrix, then translation, scale and rotation.
inline constexpr std::size_t kFirstOfTranslation = 16;
inline constexpr std::size_t kFirstOfScale = 19;
inline constexpr std::size_t kFirstOfRotation = 22;
inline constexpr std::size_t kNumbersOfBone = 26;

/// The head and both eyes.
inline constexpr int kAssignmentLines = 3;

/// A key's time: cut towards zero; what an int cannot hold becomes its nearest end.
inline int WholeTime(double time) {
  using Limits = std::numeric_limits<int>;
  return static_cast<int>(std::clamp<double>(time, Limits::min(), Limits::max()));
}

}  // namespace lipvane
