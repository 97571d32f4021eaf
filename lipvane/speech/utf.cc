#include "lipvane/speech/utf.h"

#include <algorithm>
#include <cstddef>

#include "lipvane/speech/words.h"

namespace lipvane::speech {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kBigEndianMark = "\xFE\xFF";
constexpr std::string_view kLittleEndianMark = "\xFF\xFE";

constexpr char32_t kLoneByte = 0xDC00;

bool IsHighSurrogate(char32_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsLowSurrogate(char32_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

char32_t Byte(std::string_view bytes, std::size_t place) {
  return static_cast<unsigned char>(bytes[place]);
}

bool FromUtf16(std::string_view bytes, bool isBigEndian, std::string& text, ReadProblem& problem) {
  const auto unitAt = [&](std::size_t i) {
    const char32_t first = Byte(bytes, i);
    const char32_t second = Byte(bytes, i + 1);
    return isBigEndian ? first << 8 | second : second << 8 | first;
  };
  const auto refuse = [&](const char* reason) {
    const auto lines = 1 + std::count(text.begin(), text.end(), '\n');
    return Refuse(problem, static_cast<int>(lines), reason);
  };
  text.clear();
  for (std::size_t i = 0; i < bytes.size(); i += 2) {
    if (bytes.size() - i < 2) return refuse("the file ends within a character of UTF-16");
    char32_t character = unitAt(i);
    if (IsHighSurrogate(character) && bytes.size() - i >= 4 && IsLowSurrogate(unitAt(i + 2))) {
      i += 2;
      character = 0x10000 + ((character - 0xD800) << 10) + (unitAt(i) - 0xDC00);
    } else if (IsHighSurrogate(character) || IsLowSurrogate(character)) {
      return refuse("half of a pair of UTF-16 stands alone");
    }
    AppendUtf8(text, character);
  }
  return true;
}

}  // namespace

bool ToUtf8(std::string_view bytes, std::string& text, ReadProblem& problem) {
  const std::string_view mark = bytes.substr(0, 2);
  if (mark == kBigEndianMark || mark == kLittleEndianMark) {
    return FromUtf16(bytes.substr(2), mark == kBigEndianMark, text, problem);
  }
  text = bytes.substr(bytes.substr(0, 3) == kUtf8Mark ? 3 : 0);
  return true;
}

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
  std::size_t length = 1;
  if (first >= 0xF0 && first < 0xF5) {
    length = 4;
  } else if (first >= 0xE0 && first < 0xF0) {
    length = 3;
  } else if (first >= 0xC2 && first < 0xE0) {
    length = 2;
  }
  char32_t character = length == 1 ? first : first & (0x7FU >> length);
  bool isWhole = first < 0x80 || (length > 1 && length <= text.size());
  for (std::size_t i = 1; isWhole && i < length; ++i) {
    isWhole = Byte(text, i) >> 6 == 2;
    character = character << 6 | (Byte(text, i) & 0x3F);
  }
  text.remove_prefix(isWhole ? length : 1);
  return isWhole ? character : kLoneByte + first;
}

}  // namespace lipvane::speech
