#pragma once

#include <string>
#include <string_view>

namespace lipvane::text {

/// Appends one character as UTF-8.
void AppendUtf8(std::string& text, char32_t character);

/// Cuts the first character off a text of UTF-8. A byte that begins none stands for itself, as
/// U+DC80 to U+DCFF, which no text holds. The text must not be empty.
char32_t TakeCharacter(std::string_view& text);

/// What to add to the reason why a text was refused that begins with a byte order mark, which
/// nobody sees: " (the file begins with a byte order mark)". Empty without one.
std::string ByteOrderMarkHint(std::string_view text);

}  // namespace lipvane::text
