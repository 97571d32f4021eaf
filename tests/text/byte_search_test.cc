#include "lipvane/text/byte_search.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bitset>
#include <cstddef>
#include <random>
#include <string>

namespace lipvane::text {
namespace {

TEST(FindAny, AgreesWithALookAtEachByte) {
  constexpr char kSome[] = {';', '"', '/', ':', 'a', '\0', '\xBB', '\xA2'};
  std::mt19937 random(7);
  for (const unsigned rarity : {1U, 8U, 60U}) {
    for (std::size_t length = 0; length < 4 * kBlock; ++length) {
      std::string text(length, '.');
      for (char& c : text)
        if (random() % rarity == 0) c = kSome[random() % sizeof kSome];
      for (std::size_t begin = 0; begin <= length; ++begin) {
        const std::size_t expected = std::min(text.find_first_of(";\"/", begin), length);
        EXPECT_EQ((FindAny<';', '"', '/'>(text, begin)), expected) << text << " from " << begin;
      }
    }
  }
}

TEST(ByteBlock, CountsBitsAndFindsTheLowest) {
  for (unsigned bits = 1; bits <= 0xFFFFU; ++bits) {
    const std::bitset<16> set(bits);
    ASSERT_EQ(CountOf(bits), set.count());
    ASSERT_TRUE(set[LowestOf(bits)]);
    ASSERT_TRUE((set << (kBlock - LowestOf(bits))).none());
  }
}

}  // namespace
}  // namespace lipvane::text
