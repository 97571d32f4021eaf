#pragma once

#include <cstddef>

namespace lipvane::text {

/// More than any number takes ("-1.23457e-308"): what is behind its end may be written over.
inline constexpr std::size_t kRoomForSixDigits = 16;

/// Writes what "%.6g" prints, whatever the locale, and answers where it ends. There must be room
/// for kRoomForSixDigits.
char* WriteSixDigits(char* out, double value);

}  // namespace lipvane::text
