#include "lipvane/formats/separator_scan.h"

#include <cstring>

#if defined(__SSE2__) || defined(_M_X64)
#include <emmintrin.h>
#endif

namespace lipvane {
namespace {

/// Sixteen bytes are looked at together: a bit a byte.
constexpr std::size_t kBlock = 16;

#if defined(__SSE2__) || defined(_M_X64)

/// Which bytes of a block are separators. Every x86-64 has this.
unsigned SeparatorsOf(const char* block, char separator) {
  __m128i bytes;
  std::memcpy(&bytes, block, kBlock);
  return static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, _mm_set1_epi8(separator))));
}

#else

unsigned SeparatorsOf(const char* block, char separator) {
  unsigned found = 0;
  for (std::size_t i = 0; i < kBlock; ++i)
    found |= (block[i] == separator ? 1U : 0U) << i;
  return found;
}

#endif

/// How many of sixteen bits are set; sums of two, four, eight and sixteen of them.
int CountOf(unsigned bits) {
  bits -= bits >> 1U & 0x5555U;
  bits = (bits & 0x3333U) + (bits >> 2U & 0x3333U);
  bits = (bits + (bits >> 4U)) & 0x0F0FU;
  return static_cast<int>((bits + (bits >> 8U)) & 0x1FU);
}

}  // namespace

std::size_t BehindSeparators(std::string_view text, char separator, int count) {
  std::size_t place = 0;
  unsigned atTokenStart = 1;  // whether a token starts at `place`, where no separator must stand
  while (count > 0 && text.size() - place >= kBlock) {
    const unsigned found = SeparatorsOf(text.data() + place, separator);
    const unsigned starts = found << 1U | atTokenStart;
    const int here = CountOf(found);
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
