#include "tests/support/allocation_count.h"

#include <atomic>
#include <cstdlib>
#include <new>
#ifdef __APPLE__
#include <malloc/malloc.h>
#else
#include <malloc.h>
#endif

namespace {

std::atomic<std::ptrdiff_t> live{0};
std::atomic<std::size_t> liveBytes{0};
std::atomic<std::size_t> peakBytes{0};

std::size_t SizeOf(void* memory) {
#ifdef __APPLE__
  return malloc_size(memory);
#else
  return malloc_usable_size(memory);
#endif
}

void* Allocate(std::size_t size) {
  void* memory = std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) throw std::bad_alloc();
  ++live;
  const std::size_t bytes = liveBytes += SizeOf(memory);
  if (bytes > peakBytes) peakBytes = bytes;
  return memory;
}

void Free(void* memory) {
  if (memory != nullptr) {
    --live;
    liveBytes -= SizeOf(memory);
  }
  std::free(memory);
}

}  // namespace

// The other forms come down to these, but for those that sanitizers bring and keep to themselves.
void* operator new(std::size_t size) {
  return Allocate(size);
}
void operator delete(void* memory) noexcept {
  Free(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept {
  Free(memory);
}
void* operator new[](std::size_t size) {
  return Allocate(size);
}
void operator delete[](void* memory) noexcept {
  Free(memory);
}
void operator delete[](void* memory, std::size_t /*size*/) noexcept {
  Free(memory);
}
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  try {
    return Allocate(size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}
void operator delete(void* memory, const std::nothrow_t& /*tag*/) noexcept {
  Free(memory);
}

std::ptrdiff_t lipvane::test::LiveAllocations() {
  return live;
}

std::size_t lipvane::test::PeakBytesOf(const std::function<void()>& work) {
  const std::size_t before = liveBytes;
  peakBytes = before;
  work();
  return peakBytes - before;
}
