#include "lipvane/host/standalone/code_page.h"

namespace lipvane::standalone {
namespace {

constexpr std::size_t kNpos = std::string_view::npos;

std::size_t Code(char c) {
  return static_cast<unsigned char>(c);
}

}  // namespace

CodePage CodePage::OfScene(std::string_view source) {
  constexpr std::size_t kHeader = 1024;
  constexpr std::string_view kLabel = "//Codeset: ";
  CodePage result;
  const std::string_view header = source.substr(0, kHeader);
  const std::size_t label = header.find(kLabel);
  if (label == kNpos) return result;
  const std::string_view page = header.substr(label + kLabel.size(), 3);
  result.hasKatakana_ = page == "932";
  result.isDoubleByte_ = page == "932" || page == "936" || page == "949" || page == "950";
  return result;
}

bool CodePage::IsDouble(std::string_view text, std::size_t i) const {
  const std::size_t lead = Code(text[i]);
  if (lead < 0x81 || lead == 0xFF || i + 1 >= text.size()) return false;
  if (hasKatakana_ && lead >= 0xA0 && lead < 0xE0) return false;
  const std::size_t trail = Code(text[i + 1]);
  return trail >= 0x40 && trail != 0x7F && trail != 0xFF;
}

std::size_t CodePage::Find(std::string_view text, char c) const {
  if (!isDoubleByte_) return text.find(c);
  for (std::size_t i = 0; i < text.size(); i += Width(text, i)) {
    if (text[i] == c) return i;
  }
  return kNpos;
}

bool CodePage::DoublesBackslashes(std::string_view text) const {
  if (!isDoubleByte_) return false;
  for (std::size_t i = 0; i < text.size(); i += Width(text, i)) {
    if (Width(text, i) == 2 && QuotedWidth(text, i) == 3) return true;
  }
  return false;
}

}  // namespace lipvane::standalone
