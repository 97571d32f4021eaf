#include "lipvane/text/utf8.h"

#include <cstddef>

namespace lipvane::text {
namespace {

constexpr char32_t kLoneByte = 0xDC00;

char32_t Byte(std::string_view text, std::size_t place) {
  return static_cast<unsigned char>(text[place]);
}

/// Of the character that a byte begins; 0 when it begins none.
std::size_t LengthFrom(char32_t first) {
  if (first < 0x80) return 1;
  if (first >= 0xC2 && first < 0xE0) return 2;
  if (first >= 0xE0 && first < 0xF0) return 3;
  return first >= 0xF0 && first < 0xF5 ? 4 : 0;
}

/// Whether a character needs as many bytes as it was given, and is one.
bool IsCharacter(char32_t character, std::size_t length) {
  constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
  const bool isSurrogate = character >= 0xD800 && character < 0xE000;
  return character >= kLeast[length] && character <= 0x10FFFF && !isSurrogate;
}

}  // namespace

void AppendUtf8(std::string& text, char32_t character) {
  const auto append = [&](char32_t byte) { text += static_cast<char>(byte); };
  if (character < 0x80) {
    append(character);
  } else if (character < 0x800) {
    append(0xC0 | character >> 6);
    append(0x80 | (character & 0x3F));
  } else if (character < 0x10000) {
    append(0xE0 | character >> 12);
    append(0x80 | (character >> 6 & 0x3F));
    append(0x80 | (character & 0x3F));
  } else {
    append(0xF0 | character >> 18);
    append(0x80 | (character >> 12 & 0x3F));
    append(0x80 | (character >> 6 & 0x3F));
    append(0x80 | (character & 0x3F));
  }
}

char32_t TakeCharacter(std::string_view& text) {
  const char32_t first = Byte(text, 0);
  const std::size_t length = LengthFrom(first);
  if (length == 1) {
    text.remove_prefix(1);
    return first;
  }
  char32_t character = first & (0x7FU >> length);
  bool isWhole = length > 0 && length <= text.size();
  for (std::size_t i = 1; isWhole && i < length; ++i) {
    isWhole = Byte(text, i) >> 6 == 2;
    character = character << 6 | (Byte(text, i) & 0x3F);
  }
  isWhole = isWhole && IsCharacter(character, length);
  text.remove_prefix(isWhole ? length : 1);
  return isWhole ? character : kLoneByte + first;
}

std::string ByteOrderMarkHint(std::string_view text) {
  if (text.substr(0, 3) == "\xEF\xBB\xBF") return " (the file begins with a byte order mark)";
  const std::string_view mark = text.substr(0, 2);
  const bool isUtf16 = mark == "\xFF\xFE" || mark == "\xFE\xFF";
  return isUtf16 ? " (the file is UTF-16: save it as UTF-8 without a byte order mark)" : "";
}

}  // namespace lipvane::text
