#include "lipvane/text/utf8.h"

#include <gtest/gtest.h>

namespace lipvane::text {
namespace {

/// Every character of a text; what is none as its byte.
std::u32string Characters(std::string_view text) {
  std::u32string characters;
  while (!text.empty())
    characters += TakeCharacter(text);
  return characters;
}

TEST(Utf8, GivesBackWhatWasWritten) {
  const std::u32string characters =
      U"\u0001a\u007F\u0080\u07FF\u0800\uD7FF\uE000\uFFFF\U00010000\U0010FFFF";
  std::string text;
  for (const char32_t c : characters)
    AppendUtf8(text, c);
  EXPECT_EQ(text,
            "\x01"
            "a\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF"
            "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF");
  EXPECT_EQ(Characters(text), characters);
}

TEST(Utf8, TakesBytesThatAreNoneAsTheyAre) {
  for (const std::string text :
       {"\x80", "\xC3", "\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xE2\x82", "\xED\xA0\x80",
        "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5", "\xFF"}) {
    std::u32string bytes;
    for (const char c : text)
      bytes += 0xDC00 + static_cast<char32_t>(static_cast<unsigned char>(c));
    EXPECT_EQ(Characters(text), bytes) << text;
    EXPECT_EQ(Characters(text + "a"), bytes + U"a") << text;
  }
}

}  // namespace
}  // namespace lipvane::text
