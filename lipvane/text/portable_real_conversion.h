#pragma once

#include <charconv>

#include "lipvane/text/real_conversion.h"

/// The conversions of real_conversion.h by way of strtod and snprintf. Built everywhere, so that
/// they can be held against the library's where it has its own.
namespace lipvane::text::portable {

std::from_chars_result RealFromChars(const char* first, const char* last, double& value);

std::to_chars_result RealToChars(char* first, char* last, double value);

std::to_chars_result RealToChars(char* first, char* last, double value, RealFormat format,
                                 int precision);

}  // namespace lipvane::text::portable
