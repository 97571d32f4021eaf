#include "lipvane/text/byte_search.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

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

TEST(PlacesOf, IsTheSameByteByByte) {
  std::mt19937 random(5);
  for (std::size_t size = 0; size < 200; ++size) {
    std::vector<char> text(size);  // of just this size, so that a look beyond shows
    for (char& c : text)
      c = " \xA0x"[random() % 3];
    for (std::size_t place = 0; place <= size; ++place) {
      std::bitset<kWideBlock> expected;
      for (std::size_t i = place; i < std::min(size, place + kWideBlock); ++i)
        expected[i - place] = text[i] == ' ';
      ASSERT_EQ(PlacesOf(' ', {text.data(), size}, place), expected.to_ullong())
          << size << ' ' << place;
    }
  }
}

TEST(PlacesAsBits, AreCountedAndFound) {
  std::mt19937_64 random(3);
  for (int round = 0; round < 10000; ++round) {
    const std::uint64_t some = random() & random();
    const std::bitset<kWideBlock> set(some | std::uint64_t{1} << random() % 64);
    ASSERT_EQ(CountOf(set.to_ullong()), static_cast<int>(set.count()));
    int number = 0;
    for (std::size_t i = 0; i < kWideBlock; ++i) {
      if (!set[i]) continue;
      ASSERT_EQ(PlaceOfBit(set.to_ullong(), ++number), i);
    }
  }
}

}  // namespace
}  // namespace lipvane::text
