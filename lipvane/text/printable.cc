#include "lipvane/text/printable.h"

namespace lipvane::text {
namespace {

bool IsControl(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 0x20 || byte == 0x7F;
}

/// Of a UTF-8 character of several bytes, any but the first.
bool IsContinuation(char c) {
  return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

}  // namespace

std::string Printable(std::string_view text) {
  std::string shown;
  shown.reserve(text.size());
  for (const char c : text) {
    if (c == '\t') {
      shown += "\\t";
    } else {
      shown += IsControl(c) && c != '\n' ? '?' : c;
    }
  }
  return shown;
}

std::string PrintableLine(std::string_view text) {
  std::string line;
  for (const char c : Printable(text)) {
    if (c == '\n') {
      line += "\\n";
    } else {
      line += c;
    }
  }
  return line;
}

std::string Quoted(std::string_view text, std::size_t longest) {
  std::size_t length = text.size();
  if (length > longest) {
    length = longest;
    while (length > 0 && IsContinuation(text[length]))
      --length;
  }
  std::string quoted = "\"";
  quoted += text.substr(0, length);
  quoted += length < text.size() ? "...\"" : "\"";
  return quoted;
}

std::string QuotedLine(std::string_view text) {
  constexpr std::size_t kLongest = 60;
  return Quoted(PrintableLine(text), kLongest);
}

}  // namespace lipvane::text
