#pragma once

#include <charconv>

/// std::from_chars and std::to_chars for real numbers, which many a library of C++17 has for
/// integers only. Where the library has them, these are the library's.
namespace lipvane::text {

enum class RealFormat { kGeneral, kFixed };

/// Reads the decimal number (or "inf", "nan") that [first, last) begins with. Beyond the range of
/// double the result says so, and `value` is not to be used.
std::from_chars_result RealFromChars(const char* first, const char* last, double& value);

/// Writes the shortest text that reads back as `value`.
std::to_chars_result RealToChars(char* first, char* last, double value);

/// Writes what "%.*g" or "%.*f" print.
std::to_chars_result RealToChars(char* first, char* last, double value, RealFormat format,
                                 int precision);

}  // namespace lipvane::text
