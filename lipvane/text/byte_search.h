#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "lipvane/text/byte_block.h"

namespace lipvane::text {

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
