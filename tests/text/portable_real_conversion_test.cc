#include "lipvane/text/portable_real_conversion.h"

#include <gtest/gtest.h>

#include <array>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <system_error>

#include "lipvane/text/real_conversion.h"
#include "tests/support/comma_locale.h"

// Held against the library's own conversions; where it has none, this finds nothing.
namespace lipvane::text {
namespace {

/// In the locales of the C library too, which snprintf and strtod follow.
class PortableRealConversion : public testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    if (std::setlocale(LC_ALL, GetParam()) == nullptr) GTEST_SKIP() << "not installed";
  }
  void TearDown() override { std::setlocale(LC_ALL, "C"); }

 private:
  test::CommaLocale comma_;
};
INSTANTIATE_TEST_SUITE_P(Locales, PortableRealConversion,
                         testing::Values("C", "de_DE.UTF-8", "ps_AF.UTF-8"));

std::string Write(bool portably, double value) {
  std::array<char, 400> text{};
  char* const last = text.data() + text.size();
  char* next = portably ? portable::RealToChars(text.data(), last, value).ptr
                        : RealToChars(text.data(), last, value).ptr;
  for (const RealFormat format : {RealFormat::kGeneral, RealFormat::kFixed}) {
    *next++ = ' ';
    next = portably ? portable::RealToChars(next, last, value, format, 6).ptr
                    : RealToChars(next, last, value, format, 6).ptr;
  }
  return std::string(text.data(), next);
}

void ExpectSameText(double value) {
  EXPECT_EQ(Write(true, value), Write(false, value));
  EXPECT_EQ(Write(true, -value), Write(false, -value));
}

/// What the start of a text is read as, while digits go on behind the end.
std::string Read(bool portably, const std::string& text) {
  double value = 0.25;
  const std::string longer = text + "1";
  const char* const last = longer.data() + text.size();
  const auto [stop, error] = portably ? portable::RealFromChars(longer.data(), last, value)
                                      : RealFromChars(longer.data(), last, value);
  std::ostringstream out;
  out << stop - longer.data() << " characters ";
  if (error == std::errc()) out << std::signbit(value) << std::hexfloat << value;
  if (error == std::errc::result_out_of_range) out << "out of range";
  return out.str();
}

void ExpectSameValue(const std::string& text) {
  EXPECT_EQ(Read(true, text), Read(false, text)) << text.substr(0, 100);
}

TEST_P(PortableRealConversion, AgreesOnHardNumbers) {
  for (const double value : {0.0, HUGE_VAL, std::nan(""), 1e5, 123456.0, 1e-5, 0.00012345, 1e22,
                             1e23, 123456789012345680000.0, 1234567890123456800000.0, 999999.5}) {
    ExpectSameText(value);
  }
  for (double power = std::numeric_limits<double>::denorm_min(); power < HUGE_VAL; power *= 2.0) {
    ExpectSameText(power);
    ExpectSameText(std::nextafter(power, 0.0));
  }
  std::array<char, 3> little{};
  EXPECT_EQ(portable::RealToChars(little.data(), little.data() + 3, 0.25).ec,
            std::errc::value_too_large);
}

TEST_P(PortableRealConversion, AgreesOnHardTexts) {
  std::istringstream texts(
      "- . -. .5 -5. -.e1 5.e1 1e 1e+ 1e-x 1E5 1e+05 +1 --1 1.2.3 1,5 1.234,5 0x1p3 e5 -0 0e-999 "
      "4.9e-324 2.4e-324 2.5e-324 2.225073858507201e-308 1.7976931348623157e308 9007199254740993 "
      "1.7976931348623159e308 -1e400 -1e-400 7e99999999999999999999 -7e-99999999999999999999 "
      "0e99999999999999999999 inf -INFinity infinite nan -NaN(1_a) nan( nan(?) i na 1.#INF");
  for (std::string text; texts >> text;)
    ExpectSameValue(text);
  const std::string zeros(100'000, '0');
  const std::string half = "1.00000000000000011102230246251565404236316680908203125";  // 1 + 2^-53
  for (const std::string& text :
       {std::string(), half, half + zeros, half + zeros + "1", zeros + half,
        "-0." + zeros + "7e100001", "1" + zeros + "e-100000", "1" + zeros, "0." + zeros + "1",
        zeros}) {
    ExpectSameValue(text);
  }
}

TEST_P(PortableRealConversion, AgreesOnRandomNumbers) {
  std::mt19937_64 random(20);  // the same ones every time
  for (int i = 0; i < 20'000 && !HasFailure(); ++i) {
    const std::uint64_t bits = random();
    double value = 0.0;
    std::memcpy(&value, &bits, sizeof value);
    ExpectSameText(value);
    ExpectSameText(static_cast<double>(bits % 2'000'000) / 1000.0);
    std::string text = std::to_string(random() >> (bits % 64));
    text.insert(bits % text.size(), ".");
    ExpectSameValue(text + "e" + std::to_string(static_cast<int>(bits % 700) - 350));
  }
}

}  // namespace
}  // namespace lipvane::text
