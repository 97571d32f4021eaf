#pragma once

#include <cstddef>
#include <cstring>

#if defined(__SSE2__) || defined(_M_X64)
#include <emmintrin.h>
#endif

/// Sixteen bytes of a text looked at together, a bit a byte: the first byte's is the lowest.
namespace lipvane::text {

inline constexpr std::size_t kBlock = 16;

#if defined(__SSE2__) || defined(_M_X64)

/// Which bytes of a block are one of those wanted. Every x86-64 has this.
template <typename... Bytes>
unsigned PlacesIn(const char* block, Bytes... wanted) {
  __m128i bytes;
  std::memcpy(&bytes, block, kBlock);
  __m128i found = _mm_setzero_si128();
  ((found = _mm_or_si128(found, _mm_cmpeq_epi8(bytes, _mm_set1_epi8(wanted)))), ...);
  return static_cast<unsigned>(_mm_movemask_epi8(found));
}

#else

/// Which bytes of a block are one of those wanted.
template <typename... Bytes>
unsigned PlacesIn(const char* block, Bytes... wanted) {
  unsigned found = 0;
  for (std::size_t i = 0; i < kBlock; ++i)
    found |= (((block[i] == wanted) || ...) ? 1U : 0U) << i;
  return found;
}

#endif

/// How many of sixteen bits are set; sums of two, four, eight and sixteen of them.
inline unsigned CountOf(unsigned bits) {
  bits -= bits >> 1U & 0x5555U;
  bits = (bits & 0x3333U) + (bits >> 2U & 0x3333U);
  bits = (bits + (bits >> 4U)) & 0x0F0FU;
  return (bits + (bits >> 8U)) & 0x1FU;
}

/// The number of the lowest of sixteen bits that is set; one must be.
inline unsigned LowestOf(unsigned bits) {
#ifdef __GNUC__
  return static_cast<unsigned>(__builtin_ctz(bits));
#else
  return CountOf(~bits & (bits - 1));
#endif
}

}  // namespace lipvane::text
