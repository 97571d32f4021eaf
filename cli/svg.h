#pragma once

#include <string>
#include <string_view>

/// Pieces of SVG pictures.
namespace lipvane::cli {

/// A text of strangers as valid UTF-8 of characters that XML has and that can be drawn: others, and
/// bytes that are no UTF-8, become U+FFFD.
std::string XmlCharacters(std::string_view text);
/// Such a text with XML's own characters escaped, for between tags or double quotes.
std::string XmlEscaped(std::string_view text);

/// How wide a text is at most, in an ordinary sans-serif font of this size. Text is UTF-8.
double TextWidth(std::string_view text, double fontSize);
/// The text, cut with an ellipsis at its end where it would be wider.
std::string FittedText(const std::string& text, double fontSize, double width);

/// Appends a coordinate: two decimals at most, whatever the locale.
void AppendCoordinate(std::string& out, double value);

}  // namespace lipvane::cli
