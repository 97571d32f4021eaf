#include "lipvane/formats/separator_scan.h"

#include "lipvane/text/byte_block.h"

namespace lipvane {

std::size_t BehindSeparators(std::string_view text, char separator, int count) {
  using text::kBlock;
  std::size_t place = 0;
  unsigned atTokenStart = 1;  // whether a token starts at `place`, where no separator must stand
  while (count > 0 && text.size() - place >= kBlock) {
    const unsigned found = text::PlacesIn(text.data() + place, separator);
    const unsigned starts = found << 1U | atTokenStart;
    const int here = static_cast<int>(text::CountOf(found));
    // What is decided in this block is left to the bytes.
    if ((found & starts) != 0 || here >= count) break;
    count -= here;
    atTokenStart = starts >> kBlock & 1U;
    place += kBlock;
  }
  for (; count > 0; ++place) {
    if (place == text.size()) return std::string_view::npos;
    const bool isSeparator = text[place] == separator;
    if (isSeparator && atTokenStart != 0) return std::string_view::npos;
    count -= isSeparator ? 1 : 0;
    atTokenStart = isSeparator ? 1 : 0;
  }
  return place;
}

}  // namespace lipvane
