#include "lipvane/text/six_digits.h"

#include <cmath>
#include <cstdint>
#include <cstring>

#include "lipvane/text/powers_of_ten.h"
#include "lipvane/text/real_conversion.h"

namespace lipvane::text {
namespace {

constexpr int kDigits = 6;

// Within these the power of ten that makes six digits of a number is exact.
constexpr double kLeast = 1e-16;
constexpr double kLargest = 1e21;

/// The two digits of each number below a hundred.
struct Pairs {
  char of[100][2];
};

constexpr Pairs MakePairs() {
  Pairs pairs{};
  for (int i = 0; i < 100; ++i) {
    pairs.of[i][0] = static_cast<char>('0' + i / 10);
    pairs.of[i][1] = static_cast<char>('0' + i % 10);
  }
  return pairs;
}

constexpr Pairs kPairs = MakePairs();

/// A number of six digits and the power of ten of its first one.
struct Decimal {
  std::uint32_t digits = 0;  ///< 0: not known
  int exponent = 0;
};

double Scaled(double value, int power) {
  return power >= 0 ? value * kPowersOfTen[power] : value / kPowersOfTen[-power];
}

/// Of a positive number. One rounding leaves the scaled number off by less than 1e-9; where that
/// could decide which way the last digit goes, nothing is known.
Decimal DecimalOf(double value) {
  if (!(value >= kLeast && value < kLargest)) return {};
  std::uint64_t bits = 0;
  std::memcpy(&bits, &value, sizeof bits);
  // The number is below this power of two, which gives the exponent of ten, or one too many.
  const int binary = static_cast<int>(bits >> 52U) - 1022;
  Decimal decimal;
  decimal.exponent = binary * 1233 >> 12;  // binary * log10(2), rounded down
  // Whether it is one too many changes from number to number: nothing branches on it.
  decimal.exponent -= Scaled(value, kDigits - 1 - decimal.exponent) < 1e5 ? 1 : 0;
  const double scaled = Scaled(value, kDigits - 1 - decimal.exponent);
  const auto whole = static_cast<std::uint32_t>(scaled);
  const double rest = scaled - whole;
  if (std::abs(rest - 0.5) < 1e-9) return {};
  decimal.digits = whole + (rest > 0.5 ? 1 : 0);
  if (decimal.digits == 1000000) {
    decimal.digits = 100000;
    ++decimal.exponent;
  }
  return decimal;
}

// Six digits are copied, however many of them count: a copy of a fixed size is a single move, and
// what is too much is written over.

/// Digits with a point behind the first `whole` of them, and none without digits behind it.
char* WriteFixed(char* out, const char* digits, int count, int whole) {
  std::memcpy(out, digits, kDigits);  // zeros at its end stand for themselves
  if (count <= whole) return out + whole;
  out[whole] = '.';
  std::memcpy(out + whole + 1, digits + whole, kDigits);
  return out + count + 1;
}

/// Digits behind a point and that many zeros, at most four.
char* WriteFraction(char* out, const char* digits, int count, int zeros) {
  constexpr char kStart[] = {'0', '.', '0', '0', '0', '0'};
  std::memcpy(out, kStart, sizeof kStart);
  std::memcpy(out + 2 + zeros, digits, kDigits);
  return out + 2 + zeros + count;
}

char* WriteExponent(char* out, int exponent) {
  *out++ = 'e';
  *out++ = exponent < 0 ? '-' : '+';
  const int size = exponent < 0 ? -exponent : exponent;  // of two digits, here
  *out++ = static_cast<char>('0' + size / 10);
  *out++ = static_cast<char>('0' + size % 10);
  return out;
}

}  // namespace

char* WriteSixDigits(char* out, double value) {
  const double size = std::abs(value);
  const Decimal decimal = DecimalOf(size);
  if (decimal.digits == 0) {
    if (size == 0.0 && !std::signbit(value)) {  // what most of a matrix is
      *out++ = '0';
      return out;
    }
    return RealToChars(out, out + kRoomForSixDigits, value, RealFormat::kGeneral, kDigits).ptr;
  }
  // Behind the digits there is room to copy six from any of them.
  char digits[2 * kDigits] = {};
  std::memcpy(digits, kPairs.of[decimal.digits / 10000], 2);
  std::memcpy(digits + 2, kPairs.of[decimal.digits / 100 % 100], 2);
  std::memcpy(digits + 4, kPairs.of[decimal.digits % 100], 2);
  int count = kDigits;
  while (digits[count - 1] == '0')
    --count;

  *out = '-';
  out += value < 0.0 ? 1 : 0;
  if (decimal.exponent < -4 || decimal.exponent >= kDigits) {
    return WriteExponent(WriteFixed(out, digits, count, 1), decimal.exponent);
  }
  if (decimal.exponent >= 0) return WriteFixed(out, digits, count, decimal.exponent + 1);
  return WriteFraction(out, digits, count, -decimal.exponent - 1);
}

}  // namespace lipvane::text
