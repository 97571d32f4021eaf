#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "lipvane/text/byte_search.h"
#include "lipvane/text/powers_of_ten.h"

#if defined(__SSE2__) || defined(_M_X64)
#include <emmintrin.h>
#endif

/// The decimals of which our files are full, read sixteen bytes at a time. Inline, because a call
/// takes as long as what it does.
namespace lipvane::text {

inline constexpr std::size_t kLongestShortDecimal = 16;
/// So many digits and their power of ten are exact in double precision: one division rounds right.
inline constexpr std::size_t kMostDigits = 15;

/// Byte by byte: what the fast form must be equal to.
namespace plain {

inline bool ReadShortDecimal(const char* end, std::size_t length, double& value) {
  if (length == 0 || length > kLongestShortDecimal) return false;
  const char* at = end - length;
  const bool isNegative = *at == '-';
  if (isNegative) ++at;
  std::uint64_t digits = 0;
  std::size_t count = 0;
  const char* point = nullptr;
  for (; at < end; ++at) {
    if (*at >= '0' && *at <= '9') {
      digits = digits * 10 + static_cast<std::uint64_t>(*at - '0');
      ++count;
    } else if (*at == '.' && point == nullptr) {
      point = at;
    } else {
      return false;
    }
  }
  if (count == 0 || count > kMostDigits) return false;
  const std::ptrdiff_t decimals = point != nullptr ? end - point - 1 : 0;
  const double size = static_cast<double>(digits) / kPowersOfTen[decimals];
  value = isNegative ? -size : size;
  return true;
}

}  // namespace plain

#if defined(__SSE2__) || defined(_M_X64)

/// Ones in the last `count` of sixteen bytes; in all for a count from 16 to 31.
inline __m128i LastBytes(std::size_t count) {
  // clang-format off
  static constexpr signed char kZerosThenOnes[] = {
       0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,  0,
      -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1,
      -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1};
  // clang-format on
  __m128i mask;
  std::memcpy(&mask, kZerosThenOnes + count, sizeof mask);
  return mask;
}

/// The two numbers that sixteen digits are, eight each: neighbours are joined to fours and eights.
inline __m128d Joined(__m128i digits) {
  const __m128i first = _mm_and_si128(digits, _mm_set1_epi16(0xFF));
  const __m128i second = _mm_srli_epi16(digits, 8);
  const __m128i fours = _mm_add_epi32(_mm_madd_epi16(first, _mm_set1_epi32(10 << 16 | 1000)),
                                      _mm_madd_epi16(second, _mm_set1_epi32(1 << 16 | 100)));
  return _mm_cvtepi32_pd(
      _mm_madd_epi16(_mm_packs_epi32(fours, fours), _mm_set1_epi32(1 << 16 | 10000)));
}

/// The value of a decimal of up to sixteen bytes with or without sign and point ("-0.85"), which is
/// what most numbers are. The sixteen bytes before its end must be readable. False, with `value`
/// untouched, for all else: exponents, no digit or more than kMostDigits, other bytes.
///
/// The bytes are loaded so that the number ends where they do, however long it is, and nothing
/// branches on what it looks like: that changes from number to number, and a branch that was
/// foretold wrong takes as long as a whole number.
inline bool ReadShortDecimal(const char* end, std::size_t length, double& value) {
  if (length - 1 >= kLongestShortDecimal) return false;
  const std::size_t isNegative = end[-static_cast<std::ptrdiff_t>(length)] == '-' ? 1 : 0;
  const std::size_t unsignedLength = length - isNegative;

  __m128i bytes;
  std::memcpy(&bytes, end - sizeof bytes, sizeof bytes);
  const __m128i digits =
      _mm_and_si128(_mm_sub_epi8(bytes, _mm_set1_epi8('0')), LastBytes(unsignedLength));
  const auto areDigits = static_cast<unsigned>(
      _mm_movemask_epi8(_mm_cmpeq_epi8(_mm_min_epu8(digits, _mm_set1_epi8(9)), digits)));
  const auto arePoints =
      static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(digits, _mm_set1_epi8('.' - '0'))));
  const bool isPlain = areDigits + arePoints == 0xFFFFU && (arePoints & (arePoints - 1)) == 0;

  // 31 when there is no point, so that all bytes stay below.
  const std::size_t behindPoint = LowestBit(arePoints | 1U << 16U) ^ 15U;
  const std::size_t hasNoPoint = behindPoint >> 4U;
  const std::size_t count = unsignedLength - 1 + hasNoPoint;
  if (!isPlain || count - 1 >= kMostDigits) return false;

  // The digits before the point move on into its place.
  const __m128i stay = LastBytes(behindPoint);
  const __m128d halves = Joined(
      _mm_or_si128(_mm_and_si128(stay, digits), _mm_andnot_si128(stay, _mm_slli_si128(digits, 1))));
  static constexpr double kWeights[][2] = {{1e8, 1.0}, {-1e8, -1.0}};
  const __m128d weighed = _mm_mul_pd(halves, _mm_loadu_pd(kWeights[isNegative]));
  const double whole = _mm_cvtsd_f64(_mm_add_sd(weighed, _mm_unpackhi_pd(weighed, weighed)));
  value = whole / kPowersOfTen[behindPoint & (hasNoPoint - 1)];
  return true;
}

#else

using plain::ReadShortDecimal;

#endif

}  // namespace lipvane::text
