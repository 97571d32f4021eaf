#include "lipvane/speech/encoding.h"

#include <algorithm>
#include <cstddef>
#include <limits>

#include "lipvane/speech/words.h"
#include "lipvane/text/utf8.h"

namespace lipvane::speech {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kBigEndianMark = "\xFE\xFF";
constexpr std::string_view kLittleEndianMark = "\xFF\xFE";

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
    text::AppendUtf8(text, character);
  }
  return true;
}

}  // namespace

bool ToUtf8(std::string_view bytes, std::string& text, ReadProblem& problem) {
  if (bytes.size() > std::numeric_limits<int>::max()) {
    return Refuse(problem, 0, "it is larger than 2 GB");  // more lines than are counted
  }
  const std::string_view mark = bytes.substr(0, 2);
  if (mark == kBigEndianMark || mark == kLittleEndianMark) {
    return FromUtf16(bytes.substr(2), mark == kBigEndianMark, text, problem);
  }
  text = bytes.substr(bytes.substr(0, 3) == kUtf8Mark ? 3 : 0);
  return true;
}

}  // namespace lipvane::speech
