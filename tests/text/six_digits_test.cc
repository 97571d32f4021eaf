#include "lipvane/text/six_digits.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>
#include <string>

namespace lipvane::text {
namespace {

/// Compares with printf, in the locale of C.
void ExpectAsPrinted(double value) {
  char expected[64];
  std::snprintf(expected, sizeof expected, "%.6g", value);
  char buffer[kRoomForSixDigits];
  const std::string written(buffer, WriteSixDigits(buffer, value));
  if (written != expected) ADD_FAILURE() << written << " for " << expected;
}

TEST(SixDigits, AreWhatPrintfPrints) {
  std::mt19937_64 random(11);
  // Numbers of every size and sign, and those that are not finite.
  for (int i = 0; i < 300000; ++i) {
    const std::uint64_t bits = random();
    double value = 0.0;
    std::memcpy(&value, &bits, sizeof value);
    if (!std::isnan(value)) ExpectAsPrinted(value);
  }
  // Those of matrices, halves of the last digit and what lies just beside them, whole numbers.
  for (int i = 0; i < 300000; ++i) {
    const double power = std::pow(10.0, static_cast<int>(random() % 36) - 17);
    const double half = (static_cast<double>(100000 + random() % 900000) + 0.5) * power;
    for (const double value : {half, std::nextafter(half, 0.0), std::nextafter(half, 1e300)})
      ExpectAsPrinted(value);
    ExpectAsPrinted(std::sin(static_cast<double>(i)));
    ExpectAsPrinted(static_cast<double>(random() % 3000000) / (i % 2 == 0 ? 1.0 : -1000.0));
  }
  for (int power = -330; power <= 308; ++power) {
    const double value = std::pow(10.0, power);
    for (const double near :
         {value, std::nextafter(value, 0.0), std::nextafter(value, 1e308), 9.999995 * value})
      ExpectAsPrinted(near);
  }
  for (const double value :
       {0.0, -0.0, 999999.5, 99999.95, 0.0001, 0.00009999995,
        std::numeric_limits<double>::infinity(), std::numeric_limits<double>::denorm_min()})
    ExpectAsPrinted(value);
}

}  // namespace
}  // namespace lipvane::text
