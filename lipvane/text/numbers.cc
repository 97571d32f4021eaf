#include "lipvane/text/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>
#include <system_error>

#include "lipvane/text/real_conversion.h"
#include "lipvane/text/six_digits.h"

namespace lipvane::text {
namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

bool IsSpace(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}

std::string_view WithoutLeadingSpace(std::string_view text) {
  while (!text.empty() && IsSpace(text[0]))
    text.remove_prefix(1);
  return text;
}

/// std::from_chars knows no plus sign.
std::string_view WithoutPlus(std::string_view text) {
  const bool plus = text.size() > 1 && text[0] == '+' && text[1] != '-';
  return plus ? text.substr(1) : text;
}

/// Whether digits begin here, after a minus sign and perhaps a decimal point: no "inf", no "nan".
bool BeginsWithDigits(std::string_view text) {
  std::size_t i = 0;
  if (i < text.size() && text[i] == '-') ++i;
  if (i < text.size() && text[i] == '.') ++i;
  return i < text.size() && IsDigit(text[i]);
}

/// What stands for a decimal number whose size is beyond double: infinity when it is large, zero
/// when it is small, by the place of its first digit that counts.
double OutOfRangeValue(std::string_view number) {
  const bool negative = number[0] == '-';
  if (negative) number.remove_prefix(1);
  const std::size_t exponentMark = number.find_first_of("eE");
  const std::string_view digits = number.substr(0, exponentMark);

  const std::size_t first = digits.find_first_of("123456789");
  const std::size_t point = std::min(digits.find('.'), digits.size());
  long long place = static_cast<long long>(point) - static_cast<long long>(first);
  if (exponentMark != std::string_view::npos)
    place += IntegerPrefix(number.substr(exponentMark + 1));

  const double value = place > 0 ? std::numeric_limits<double>::infinity() : 0.0;
  return negative ? -value : value;
}

struct Parsed {
  double value = 0.0;
  std::size_t length = 0;  // 0: no number
};

Parsed Parse(std::string_view text) {
  Parsed parsed;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = RealFromChars(text.data(), end, parsed.value);
  if (error == std::errc::invalid_argument) return Parsed();
  parsed.length = static_cast<std::size_t>(stop - text.data());
  if (error == std::errc::result_out_of_range) {
    parsed.value = OutOfRangeValue(text.substr(0, parsed.length));
  }
  return parsed;
}

char Upper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

/// "1.#INF", "-1.#IND", "1.#QNAN0": how some C libraries print what is not finite.
std::optional<double> HashSpelling(std::string_view text) {
  const bool negative = !text.empty() && text[0] == '-';
  if (negative) text.remove_prefix(1);
  if (text.substr(0, 3) != "1.#") return std::nullopt;
  text.remove_prefix(3);

  std::string name;
  // Not toupper: locales have ideas of their own about an i.
  for (; !text.empty() && Upper(text[0]) >= 'A' && Upper(text[0]) <= 'Z'; text.remove_prefix(1)) {
    name += Upper(text[0]);
  }
  if (text.find_first_not_of("0123456789") != std::string_view::npos) return std::nullopt;

  using Limits = std::numeric_limits<double>;
  if (name == "INF") return negative ? -Limits::infinity() : Limits::infinity();
  if (name == "IND" || name == "NAN" || name == "QNAN" || name == "SNAN") {
    return negative ? -Limits::quiet_NaN() : Limits::quiet_NaN();
  }
  return std::nullopt;
}

}  // namespace

int IntegerPrefix(std::string_view token) {
  const std::string_view text = WithoutPlus(WithoutLeadingSpace(token));
  int value = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  static_cast<void>(stop);
  if (error == std::errc::result_out_of_range) {
    return text[0] == '-' ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
  }
  return value;
}

double RealPrefix(std::string_view token) {
  const std::string_view text = WithoutPlus(WithoutLeadingSpace(token));
  return BeginsWithDigits(text) ? Parse(text).value : 0.0;
}

std::optional<double> WholeReal(std::string_view token) {
  const std::string_view text = WithoutPlus(token);
  const Parsed parsed = Parse(text);
  if (parsed.length > 0 && parsed.length == text.size()) return parsed.value;
  return HashSpelling(text);
}

std::optional<double> FiniteReal(std::string_view token) {
  const auto number = WholeReal(token);
  return number && std::isfinite(*number) ? number : std::nullopt;
}

void AppendReal(std::string& out, double value) {
  std::array<char, kRoomForSixDigits> buffer{};
  out.append(buffer.data(), WriteSixDigits(buffer.data(), value));
}

std::string RoundedReal(double value) {
  std::string text;
  AppendReal(text, value);
  return text;
}

std::string ExactReal(double value) {
  std::array<char, 32> buffer{};
  const auto [end, error] = RealToChars(buffer.data(), buffer.data() + buffer.size(), value);
  static_cast<void>(error);  // the shortest form never needs more than 24
  return std::string(buffer.data(), end);
}

double DecimalOf(float value) {
  const auto exact = static_cast<double>(value);
  std::array<char, 32> buffer{};
  for (int digits = 1; digits <= std::numeric_limits<float>::max_digits10; ++digits) {
    const auto [end, error] = RealToChars(buffer.data(), buffer.data() + buffer.size(), exact,
                                          RealFormat::kGeneral, digits);
    static_cast<void>(error);  // so few digits have room
    double decimal = 0.0;
    RealFromChars(buffer.data(), end, decimal);
    if (static_cast<float>(decimal) == value) return decimal;
  }
  return exact;  // not a number
}

}  // namespace lipvane::text
