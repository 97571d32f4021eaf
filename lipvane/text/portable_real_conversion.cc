// Only strtod and snprintf turn decimals into doubles and back. They know no end of the text and
// follow the process's locale, so strtod is given whole numbers with an exponent, and of what
// snprintf prints the digits are taken.

#include "lipvane/text/portable_real_conversion.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>
#include <string_view>
#include <system_error>

namespace lipvane::text::portable {
namespace {

using Limits = std::numeric_limits<double>;

// What lies half-way between two doubles has no more than 767 digits, so of those beyond them it
// only matters whether one is not zero.
constexpr std::size_t kMostDigits = 800;
constexpr long long kBeyondEveryDouble = 10000;
constexpr long long kLargestExponent = std::numeric_limits<long long>::max() / 100;
constexpr int kDigitsOfEveryDouble = Limits::max_digits10;

/// Digits without zeros before them, times 10 to the power of `exponent`.
struct Decimal {
  std::string digits;
  long long exponent = 0;

  /// Takes a number's next digit as one before the decimal point.
  void Append(char digit) {
    if (digits.size() == kMostDigits) {
      ++exponent;
      if (digit != '0' && digits.back() == '0') digits.back() = '1';
    } else if (digit != '0' || !digits.empty()) {
      digits += digit;
    }
  }

  /// Goes on to the next decimal of as many digits.
  void Increment() {
    std::size_t i = digits.size();
    for (; i > 0 && digits[i - 1] == '9'; --i)
      digits[i - 1] = '0';
    if (i > 0) {
      ++digits[i - 1];
    } else {
      digits.insert(0, 1, '1');
    }
  }

  /// Infinity or 0 beyond the range of double.
  double Value() const {
    if (digits.empty()) return 0.0;
    const long long power = std::clamp(exponent, -kBeyondEveryDouble, kBeyondEveryDouble);
    return std::strtod((digits + "e" + std::to_string(power)).c_str(), nullptr);
  }
};

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

/// Behind `word`, in capitals or not, at the start of [first, last); `first` when it is not there.
const char* Behind(const char* first, const char* last, std::string_view word) {
  const char* next = first;
  for (const char c : word) {
    if (next == last || (*next != c && *next != c - 'a' + 'A')) return first;
    ++next;
  }
  return next;
}

/// Behind the characters in brackets that may follow a "nan".
const char* BehindBrackets(const char* first, const char* last) {
  if (first == last || *first != '(') return first;
  const char* const end = std::find_if(first + 1, last, [](char c) {
    return !IsDigit(c) && !(c >= 'a' && c <= 'z') && !(c >= 'A' && c <= 'Z') && c != '_';
  });
  return end != last && *end == ')' ? end + 1 : first;
}

/// Reads an exponent with its "e", when there is one; answers where it ends.
const char* ScanExponent(const char* first, const char* last, long long& exponent) {
  if (first == last || (*first != 'e' && *first != 'E')) return first;
  const char* next = first + 1;
  const bool negative = next != last && *next == '-';
  if (next != last && (*next == '-' || *next == '+')) ++next;
  if (next == last || !IsDigit(*next)) return first;
  long long written = 0;
  for (; next != last && IsDigit(*next); ++next) {
    if (written < kLargestExponent) written = written * 10 + (*next - '0');
  }
  exponent += negative ? -written : written;
  return next;
}

/// Reads a number without sign; answers where it ends, `first` when there is none.
const char* ScanDecimal(const char* first, const char* last, Decimal& decimal) {
  const char* next = first;
  bool anyDigit = false;
  bool afterPoint = false;
  for (; next != last; ++next) {
    if (IsDigit(*next)) {
      anyDigit = true;
      decimal.Append(*next);
      if (afterPoint) --decimal.exponent;
    } else if (*next == '.' && !afterPoint) {
      afterPoint = true;
    } else {
      break;
    }
  }
  return anyDigit ? ScanExponent(next, last, decimal.exponent) : first;
}

/// A positive value rounded to `count` digits.
Decimal Rounded(double value, int count) {
  char text[64];
  const int length = std::snprintf(text, sizeof text, "%.*e", count - 1, value);
  const std::string_view printed(text, static_cast<std::size_t>(length));
  const std::size_t mark = printed.find('e');
  Decimal result;
  for (const char c : printed.substr(0, mark)) {
    if (IsDigit(c)) result.digits += c;
  }
  result.exponent = std::strtol(text + mark + 1, nullptr, 10) - (count - 1);
  return result;
}

/// The shortest decimal that reads back as a positive value, and of those the nearest to it.
Decimal Shortest(double value) {
  int enough = kDigitsOfEveryDouble;
  Decimal shortest = Rounded(value, enough);
  for (int tooFew = 0; enough - tooFew > 1;) {
    const int count = (tooFew + enough) / 2;
    Decimal decimal = Rounded(value, count);
    // A power of two is farther from the double above it than from the one below, so that the
    // nearest decimal may miss it, and the next one above, farther off, not.
    if (decimal.Value() != value) decimal.Increment();
    if (decimal.Value() == value) {
      enough = count;
      shortest = decimal;
    } else {
      tooFew = count;
    }
  }
  return shortest;
}

std::string ScientificText(const Decimal& decimal) {
  const long long exponent = decimal.exponent + static_cast<long long>(decimal.digits.size()) - 1;
  std::string text = decimal.digits;
  if (text.size() > 1) text.insert(1, 1, '.');
  text += exponent < 0 ? "e-" : "e+";
  if (std::llabs(exponent) < 10) text += '0';
  return text + std::to_string(std::llabs(exponent));
}

/// How long a decimal is without exponent.
long long FixedLength(const Decimal& decimal) {
  const auto count = static_cast<long long>(decimal.digits.size());
  if (decimal.exponent >= 0) return count + decimal.exponent;
  return std::max(count, 1 - decimal.exponent) + 1;
}

std::string FixedText(const Decimal& decimal, double value) {
  if (decimal.exponent >= 0) {  // a whole number, printed with all its digits, not with zeros
    char text[64];
    const int length = std::snprintf(text, sizeof text, "%.0f", value);
    return std::string(text, static_cast<std::size_t>(length));
  }
  const auto decimals = static_cast<std::size_t>(-decimal.exponent);
  std::string text = decimal.digits;
  if (text.size() <= decimals) text.insert(0, decimals + 1 - text.size(), '0');
  return text.insert(text.size() - decimals, 1, '.');
}

std::string ShortestText(double value) {
  if (value == 0.0) return "0";
  const Decimal decimal = Shortest(value);
  std::string scientific = ScientificText(decimal);
  if (FixedLength(decimal) > static_cast<long long>(scientific.size())) return scientific;
  return FixedText(decimal, value);
}

int Print(char* text, std::size_t size, double value, RealFormat format, int precision) {
  return format == RealFormat::kFixed ? std::snprintf(text, size, "%.*f", precision, value)
                                      : std::snprintf(text, size, "%.*g", precision, value);
}

std::string PrintedText(double value, RealFormat format, int precision) {
  std::string text;  // too short, which makes snprintf say what it takes
  const auto length = static_cast<std::size_t>(Print(text.data(), 0, value, format, precision));
  text.resize(length + 1);  // snprintf ends it with a NUL
  Print(text.data(), text.size(), value, format, precision);
  text.pop_back();
  // The locale's decimal separator may have several bytes.
  const std::size_t separator = text.find_first_not_of("0123456789e+-");
  if (separator == std::string::npos) return text;
  const std::size_t decimals = text.find_first_of("0123456789", separator);
  return text.replace(separator, decimals - separator, ".");
}

/// Copies a sign and the text of a value without one, or what stands for a value that is not
/// finite.
std::to_chars_result Put(char* first, char* last, double value, std::string text) {
  if (std::isnan(value)) text = "nan";
  if (std::isinf(value)) text = "inf";
  if (std::signbit(value)) text.insert(0, 1, '-');
  if (last - first < static_cast<std::ptrdiff_t>(text.size())) {
    return {last, std::errc::value_too_large};
  }
  return {std::copy(text.begin(), text.end(), first), std::errc()};
}

}  // namespace

std::from_chars_result RealFromChars(const char* first, const char* last, double& value) {
  const char* const begin = first != last && *first == '-' ? first + 1 : first;
  const double sign = begin == first ? 1.0 : -1.0;
  Decimal decimal;
  if (const char* const end = ScanDecimal(begin, last, decimal); end != begin) {
    const double size = decimal.Value();
    if (std::isinf(size) || (size == 0.0 && !decimal.digits.empty())) {
      return {end, std::errc::result_out_of_range};
    }
    value = std::copysign(size, sign);
    return {end, std::errc()};
  }
  if (const char* const end = Behind(begin, last, "inf"); end != begin) {
    value = std::copysign(Limits::infinity(), sign);
    return {Behind(end, last, "inity"), std::errc()};
  }
  if (const char* const end = Behind(begin, last, "nan"); end != begin) {
    value = std::copysign(Limits::quiet_NaN(), sign);
    return {BehindBrackets(end, last), std::errc()};
  }
  return {first, std::errc::invalid_argument};
}

std::to_chars_result RealToChars(char* first, char* last, double value) {
  const double size = std::abs(value);
  return Put(first, last, value, std::isfinite(value) ? ShortestText(size) : "");
}

std::to_chars_result RealToChars(char* first, char* last, double value, RealFormat format,
                                 int precision) {
  const double size = std::abs(value);
  return Put(first, last, value, std::isfinite(value) ? PrintedText(size, format, precision) : "");
}

}  // namespace lipvane::text::portable
