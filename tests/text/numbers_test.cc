#include "lipvane/text/numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "tests/support/comma_locale.h"

namespace lipvane::text {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

std::string Real(double value) {
  std::string out = "<";
  AppendReal(out, value);
  return out.substr(1);
}

TEST(IntegerPrefix, TakesTheLongestPrefixWithinTheRangeOfInt) {
  EXPECT_EQ(IntegerPrefix("2.5"), 2);
  EXPECT_EQ(IntegerPrefix(" \t\n\v\f\r-17x"), -17);
  EXPECT_EQ(IntegerPrefix("+8"), 8);
  EXPECT_EQ(IntegerPrefix("2147483648"), 2147483647);
  EXPECT_EQ(IntegerPrefix("+99999999999999999999999"), 2147483647);
  EXPECT_EQ(IntegerPrefix(" -99999999999999999999999z"), std::numeric_limits<int>::min());
  for (const char* token : {"", " ", "-", "+", "+-3", "- 3", "x2", ".5", "\xc2\xa0 5"}) {
    EXPECT_EQ(IntegerPrefix(token), 0) << token;
  }
}

TEST(RealPrefix, TakesTheLongestPrefixOrNothing) {
  EXPECT_EQ(RealPrefix("  -.5abc"), -0.5);
  EXPECT_EQ(RealPrefix("+5."), 5.0);
  EXPECT_EQ(RealPrefix("1e-007"), 1e-7);
  EXPECT_EQ(RealPrefix("1E+2 3"), 100.0);
  EXPECT_EQ(RealPrefix("3e-"), 3.0);
  EXPECT_EQ(RealPrefix("1.#INF"), 1.0);
  EXPECT_TRUE(std::signbit(RealPrefix("-0")));
  for (const char* token : {"", "-", ".", "-.", "e5", "inf", "-nan", "NaN", "0x1p3", "+-1"}) {
    EXPECT_EQ(RealPrefix(token), 0.0) << token;
  }
}

TEST(RealPrefix, GoesToInfinityOrZeroOutOfRange) {
  const std::string zeros(400, '0');
  EXPECT_EQ(RealPrefix("-1e999999999999999999999"), -kInfinity);
  EXPECT_EQ(RealPrefix("9" + zeros + "x"), kInfinity);
  EXPECT_EQ(RealPrefix("0." + zeros + "1e900"), kInfinity);
  EXPECT_EQ(RealPrefix("-0." + zeros + "7"), 0.0);
  EXPECT_EQ(RealPrefix("1" + zeros + "e-99999999999999999999"), 0.0);
  EXPECT_EQ(RealPrefix("0e999999999999999999999"), 0.0);
  EXPECT_EQ(RealPrefix("5e-324"), std::numeric_limits<double>::denorm_min());
  EXPECT_EQ(RealPrefix("1" + zeros + "e-400"), 1.0);
}

TEST(WholeReal, WantsTheWholeToken) {
  EXPECT_EQ(WholeReal("-1.5e3"), -1500.0);
  EXPECT_EQ(WholeReal("+2"), 2.0);
  for (const char* token : {"", " 1", "1 ", "1x", "-", "+-1", "1.#", "1.#WHAT", "1.#INFx"}) {
    EXPECT_FALSE(WholeReal(token)) << token;
  }
}

TEST(WholeReal, KnowsWhatIsNotFinite) {
  for (const char* token : {"+INF", "Infinity", "1.#INF00", "1e400"}) {
    EXPECT_EQ(WholeReal(token), kInfinity) << token;
  }
  EXPECT_EQ(WholeReal("-1.#inf"), -kInfinity);
  for (const char* token : {"nan", "-nan(ind)", "1.#QNAN", "-1.#IND"}) {
    EXPECT_TRUE(std::isnan(WholeReal(token).value_or(0.0))) << token;
  }
}

TEST(AppendReal, PrintsSixSignificantDigits) {
  EXPECT_EQ(Real(0.85), "0.85");
  EXPECT_EQ(Real(-0.0), "-0");
  EXPECT_EQ(Real(0.0000999999999), "0.0001");
  EXPECT_EQ(Real(1e-7), "1e-07");
  EXPECT_EQ(Real(1234567.0), "1.23457e+06");
  EXPECT_EQ(Real(-1.7976931348623157e308), "-1.79769e+308");
  EXPECT_EQ(Real(kInfinity), "inf");
}

TEST(ExactReal, ReadsBackAsTheSameValueAndADecimalAsTheSameFloat) {
  EXPECT_EQ(ExactReal(0.1), "0.1");
  for (const double value : {1.0 / 3.0, -1.7976931348623157e308, 5e-324, 1e22}) {
    EXPECT_EQ(WholeReal(ExactReal(value)), value);
  }
  for (const double decimal : {0.85, -0.2, 0.0, 1e-45, 16777216.0, 3.4028235e38, 0.33333334})
    EXPECT_EQ(DecimalOf(static_cast<float>(decimal)), decimal);
}

TEST(Numbers, IgnoreTheLocaleOfTheProcess) {
  const test::CommaLocale comma;
  EXPECT_EQ(RealPrefix("1.5"), 1.5);
  EXPECT_EQ(RealPrefix("1,5"), 1.0);
  EXPECT_EQ(Real(12345.5), "12345.5");
  EXPECT_EQ(ExactReal(12345.5), "12345.5");
}

}  // namespace
}  // namespace lipvane::text
