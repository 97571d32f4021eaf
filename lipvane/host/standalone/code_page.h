#pragma once

#include <cstddef>
#include <string_view>

namespace lipvane::standalone {

/// Which bytes of a scene's text make up one character. In some code pages it has two, of which the
/// second may look like a backslash or a bar. Without a header every byte is a character.
class CodePage {
 public:
  CodePage() = default;
  /// As the header of a scene file names it.
  static CodePage OfScene(std::string_view source);

  /// Can a character have two bytes?
  bool IsDoubleByte() const { return isDoubleByte_; }
  /// The bytes of the character at `i`.
  std::size_t Width(std::string_view text, std::size_t i) const {
    return isDoubleByte_ && IsDouble(text, i) ? 2 : 1;
  }
  /// The same inside double quotes, where an escape is one character.
  std::size_t QuotedWidth(std::string_view text, std::size_t i) const {
    if (text[i] == '\\') return 2;
    if (Width(text, i) == 1) return 1;
    // Some writers double the backslash that a character ends in as any other.
    return text.substr(i + 1, 2) == "\\\\" ? 3 : 2;
  }
  /// The first place of a one-byte character, or npos.
  std::size_t Find(std::string_view text, char c) const;
  /// Does the text double the backslashes that its characters end in?
  bool DoublesBackslashes(std::string_view text) const;

 private:
  bool IsDouble(std::string_view text, std::size_t i) const;

  bool isDoubleByte_ = false;
  bool hasKatakana_ = false;  // of one byte each
};

}  // namespace lipvane::standalone
