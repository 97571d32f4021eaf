#include "cli/svg.h"

#include <array>
#include <cstddef>

#include "lipvane/text/real_conversion.h"
#include "lipvane/text/utf8.h"

namespace lipvane::cli {
namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char kEllipsis[] = "\xE2\x80\xA6";

/// Control characters that XML has are none to draw. What is no UTF-8 reads as half of a surrogate
/// pair.
bool IsDrawn(char32_t c) {
  const bool isControl = c < 0x20 || (c >= 0x7F && c < 0xA0);
  const bool isSurrogate = c >= 0xD800 && c < 0xE000;
  return !isControl && !isSurrogate && c != 0xFFFE && c != 0xFFFF && c <= 0x10FFFF;
}

/// Of the font's size. Of the common fonts the widest, rounded up.
double CharacterWidth(char32_t c) {
  constexpr std::u32string_view kWide = U"mwMW@%";
  if (c >= 0x80 || kWide.find(c) != std::u32string_view::npos) return 1.0;
  return c >= 'A' && c <= 'Z' ? 0.79 : 0.64;
}

}  // namespace

std::string XmlCharacters(std::string_view text) {
  std::string characters;
  while (!text.empty()) {
    const char32_t c = text::TakeCharacter(text);
    text::AppendUtf8(characters, IsDrawn(c) ? c : kReplacement);
  }
  return characters;
}

std::string XmlEscaped(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    switch (c) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '"':
        escaped += "&quot;";
        break;
      default:
        escaped += c;
    }
  }
  return escaped;
}

double TextWidth(std::string_view text, double fontSize) {
  double width = 0.0;
  while (!text.empty())
    width += CharacterWidth(text::TakeCharacter(text)) * fontSize;
  return width;
}

std::string FittedText(const std::string& text, double fontSize, double width) {
  if (TextWidth(text, fontSize) <= width) return text;
  const double room = width - TextWidth(kEllipsis, fontSize);
  std::size_t length = 0;
  double used = 0.0;
  for (std::string_view rest = text; !rest.empty(); length = text.size() - rest.size()) {
    used += CharacterWidth(text::TakeCharacter(rest)) * fontSize;
    if (used > room) break;
  }
  return text.substr(0, length) + kEllipsis;
}

void AppendCoordinate(std::string& out, double value) {
  constexpr int kDecimals = 2;
  std::array<char, 64> buffer{};  // far more than any picture's coordinates need
  const auto [end, error] = text::RealToChars(buffer.data(), buffer.data() + buffer.size(), value,
                                              text::RealFormat::kFixed, kDecimals);
  static_cast<void>(error);
  std::string_view digits(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
  digits.remove_suffix(digits.size() - 1 - digits.find_last_not_of('0'));
  if (digits.back() == '.') digits.remove_suffix(1);
  out += digits == "-0" ? "0" : digits;
}

}  // namespace lipvane::cli
