#include "lipvane/text/large_pages.h"

#ifdef __linux__
#include <sys/mman.h>

#include <memory>
#endif

namespace lipvane::text {

#ifdef __linux__

void UseLargePages(char* room, std::size_t size) {
  constexpr std::size_t kLargePage = std::size_t{2} << 20;
  void* begin = room;
  // The whole large pages within, so that none reaches into memory that is not ours.
  if (std::align(kLargePage, kLargePage, begin, size) == nullptr) return;
  static_cast<void>(madvise(begin, size / kLargePage * kLargePage, MADV_HUGEPAGE));
}

#else

void UseLargePages(char* /*room*/, std::size_t /*size*/) {}

#endif

}  // namespace lipvane::text
