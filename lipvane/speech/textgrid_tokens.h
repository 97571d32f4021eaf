#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace lipvane::speech {

/// Goes through the values of a TextGrid.
///
/// The long form is the short one with words between its values. Praat itself takes only what
/// stands free (texts in double quotes, numbers, flags in angle brackets) and passes over the rest,
/// which reads both.
class TextGridTokens {
 public:
  enum class Kind { kEnd, kText, kNumber, kFlag };

  explicit TextGridTokens(std::string_view rest) : rest_(rest) {}

  void Advance();

  Kind KindOf() const { return kind_; }
  int Line() const { return line_; }
  const std::string& Text() const { return text_; }  ///< of a text or a flag
  double Value() const { return value_; }            ///< of a number; may not be finite
  /// Whether a text has no closing quote.
  bool IsCut() const { return isCut_; }

 private:
  void Read();
  void ReadText();
  void SkipTo(std::size_t place);

  std::string_view rest_;
  Kind kind_ = Kind::kEnd;
  int line_ = 1;      // of the token; at the end, of the last one
  int nextLine_ = 1;  // of what follows it
  std::string text_;
  double value_ = 0.0;
  bool isCut_ = false;
};

}  // namespace lipvane::speech
