#include "lipvane/speech/textgrid_tokens.h"

#include <algorithm>

#include "lipvane/text/numbers.h"

namespace lipvane::speech {

void TextGridTokens::Advance() {
  do {
    Read();
  } while (kind_ == Kind::kEnd && !rest_.empty());
}

/// The next token, or a word that is none (kEnd).
void TextGridTokens::Read() {
  kind_ = Kind::kEnd;
  SkipTo(rest_.find_first_not_of(" \t\r\n\f\v"));
  if (rest_.empty()) return;
  line_ = nextLine_;
  if (rest_[0] == '"') {
    ReadText();
  } else if (rest_[0] == '!') {  // a comment
    SkipTo(rest_.find('\n'));
  } else {
    const std::string_view word = rest_.substr(0, rest_.find_first_of(" \t\r\n\f\v\""));
    SkipTo(word.size());
    const auto number = text::WholeReal(word);
    if (number) {
      kind_ = Kind::kNumber;
      value_ = *number;
    } else if (word.front() == '<' && word.back() == '>') {
      kind_ = Kind::kFlag;
      text_ = word;
    }
  }
}

/// A quote within the text is doubled; line ends are part of it.
void TextGridTokens::ReadText() {
  kind_ = Kind::kText;
  text_.clear();
  SkipTo(1);
  for (;;) {
    const std::size_t quote = rest_.find('"');
    text_ += rest_.substr(0, quote);
    isCut_ = quote == std::string_view::npos;
    SkipTo(isCut_ ? quote : quote + 1);
    if (isCut_ || rest_.empty() || rest_[0] != '"') return;
    text_ += '"';
    SkipTo(1);
  }
}

void TextGridTokens::SkipTo(std::size_t place) {
  place = std::min(place, rest_.size());
  for (const char c : rest_.substr(0, place))
    nextLine_ += c == '\n' ? 1 : 0;
  rest_.remove_prefix(place);
}

}  // namespace lipvane::speech
