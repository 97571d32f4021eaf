#include "lipvane/text/short_decimal.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "lipvane/text/numbers.h"

namespace lipvane::text {
namespace {

/// Whether a number is read, by either form and as RealPrefix reads it.
bool IsReadRight(const std::string& number) {
  const std::string text = "1.0 -2 ,/:9.9.-8" + number;
  const std::vector<char> bytes(text.begin(), text.end());
  const char* const end = bytes.data() + bytes.size();
  double value = 7.0;
  double plainValue = 7.0;
  const bool isRead = ReadShortDecimal(end, number.size(), value);
  EXPECT_EQ(isRead, plain::ReadShortDecimal(end, number.size(), plainValue)) << number;
  const double expected = isRead ? RealPrefix(number) : 7.0;
  for (const double read : {value, plainValue}) {
    EXPECT_EQ(read, expected) << number;
    EXPECT_EQ(std::signbit(read), std::signbit(expected)) << number;
  }
  return isRead;
}

TEST(ReadShortDecimal, IsWhatRealPrefixReads) {
  for (const char* number :
       {"0", "-0", "7", ".5", "-.5", "5.", "123456789012345", "-0.12345678901"})
    EXPECT_TRUE(IsReadRight(number)) << number;
  for (const char* none : {"", "-", ".", "-.", "1.2.3", "--1", "1-", "+1", " 1", "1e5", "nan", "1/",
                           "1:", "1234567890123456", "0.12345678901234567"})
    EXPECT_FALSE(IsReadRight(none)) << none;
  std::mt19937 random(13);
  int readCount = 0;
  for (int i = 0; i < 200000 && !HasFailure(); ++i) {
    std::string number = random() % 2 == 0 ? "-" : "";
    for (auto digit = random() % 17; digit > 0; --digit)
      number += static_cast<char>('0' + random() % 10);
    if (random() % 8 != 0) number.insert(number.size() - random() % (number.size() + 1), ".");
    if (!number.empty() && random() % 4 == 0)
      number[random() % number.size()] = static_cast<char>(random());
    readCount += IsReadRight(number) ? 1 : 0;
  }
  EXPECT_GT(readCount, 100000);
}

}  // namespace
}  // namespace lipvane::text
