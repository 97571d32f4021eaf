#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#if defined(__SSE2__) || defined(_M_X64)
#include <emmintrin.h>
#endif

/// Where bytes stand in a text, sixteen and more places at a look. Places that were found are bits,
/// the first one the lowest. Inline, because a call takes as long as what these do.
namespace lipvane::text {

inline constexpr std::size_t kBlock = 16;
inline constexpr std::size_t kWideBlock = 64;

#if defined(__SSE2__) || defined(_M_X64)

/// Which bytes of a block are one of those wanted. Every x86-64 has this.
template <typename... Bytes>
std::uint64_t PlacesIn(const char* block, Bytes... wanted) {
  __m128i bytes;
  std::memcpy(&bytes, block, kBlock);
  __m128i found = _mm_setzero_si128();
  ((found = _mm_or_si128(found, _mm_cmpeq_epi8(bytes, _mm_set1_epi8(wanted)))), ...);
  return static_cast<unsigned>(_mm_movemask_epi8(found));
}

#else

/// Which bytes of a block are one of those wanted.
template <typename... Bytes>
std::uint64_t PlacesIn(const char* block, Bytes... wanted) {
  std::uint64_t found = 0;
  for (std::size_t i = 0; i < kBlock; ++i)
    found |= std::uint64_t{((block[i] == wanted) || ...)} << i;
  return found;
}

#endif

/// Which of the next 64 bytes of a text from a place on (or of those that are left) are the wanted
/// one.
inline std::uint64_t PlacesOf(char wanted, std::string_view text, std::size_t place) {
  const std::size_t left = std::min(text.size() - place, kWideBlock);
  std::uint64_t places = 0;
  if (text.size() < kWideBlock) {
    for (std::size_t i = 0; i < left; ++i)
      places |= std::uint64_t{text[place + i] == wanted} << i;
    return places;
  }
  if (left == 0) return 0;
  // Near the end the text's last 64 bytes are looked at, so that nothing behind the text is.
  const std::size_t passed = kWideBlock - left;
  const char* const block = text.data() + (place - passed);
  for (std::size_t i = 0; i < kWideBlock; i += kBlock)
    places |= PlacesIn(block + i, wanted) << i;
  return places >> passed;
}

/// How many bits are set: sums of two, four and eight of them.
inline int CountOf(std::uint64_t bits) {
  bits -= bits >> 1U & 0x5555555555555555U;
  bits = (bits & 0x3333333333333333U) + (bits >> 2U & 0x3333333333333333U);
  bits = (bits + (bits >> 4U)) & 0x0F0F0F0F0F0F0F0FU;
  return static_cast<int>(bits * 0x0101010101010101U >> 56U);
}

/// The place of the lowest bit that is set; one must be.
inline std::size_t LowestBit(std::uint64_t bits) {
#ifdef __GNUC__
  return static_cast<unsigned>(__builtin_ctzll(bits));
#else
  return static_cast<std::size_t>(CountOf(~bits & (bits - 1)));
#endif
}

/// The place of the `number`-th bit that is set, from 1; there must be so many.
inline std::size_t PlaceOfBit(std::uint64_t bits, int number) {
  for (; number > 1; --number)
    bits &= bits - 1;
  return LowestBit(bits);
}

/// The first place from `begin` on, which is within the text or its end, where one of a few bytes
/// stands; the text's end when none does. It looks at sixteen places at once, so that a long text
/// with few such bytes takes hardly more time than to fetch it from memory.
template <char... kBytes>
std::size_t FindAny(std::string_view text, std::size_t begin) {
  std::size_t i = begin;
  for (; text.size() - i >= kBlock; i += kBlock) {
    const std::uint64_t found = PlacesIn(text.data() + i, kBytes...);
    if (found != 0) return i + LowestBit(found);
  }
  while (i < text.size() && ((text[i] != kBytes) && ...))
    ++i;
  return i;
}

}  // namespace lipvane::text
