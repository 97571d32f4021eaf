#include "lipvane/text/real_conversion.h"

#include "lipvane/text/portable_real_conversion.h"

namespace lipvane::text {

#if defined(__cpp_lib_to_chars) && __cpp_lib_to_chars >= 201611L

std::from_chars_result RealFromChars(const char* first, const char* last, double& value) {
  return std::from_chars(first, last, value);
}

std::to_chars_result RealToChars(char* first, char* last, double value) {
  return std::to_chars(first, last, value);
}

std::to_chars_result RealToChars(char* first, char* last, double value, RealFormat format,
                                 int precision) {
  return std::to_chars(
      first, last, value,
      format == RealFormat::kFixed ? std::chars_format::fixed : std::chars_format::general,
      precision);
}

#else  // libstdc++ before 11, libc++

std::from_chars_result RealFromChars(const char* first, const char* last, double& value) {
  return portable::RealFromChars(first, last, value);
}

std::to_chars_result RealToChars(char* first, char* last, double value) {
  return portable::RealToChars(first, last, value);
}

std::to_chars_result RealToChars(char* first, char* last, double value, RealFormat format,
                                 int precision) {
  return portable::RealToChars(first, last, value, format, precision);
}

#endif

}  // namespace lipvane::text
