#include "tests/support/allocations.h"

#include <atomic>
#include <cstdlib>
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

/// What shall fail on this thread.
struct Failing {
  bool isOn = false;
  std::size_t left = 0;  // allocations before it
  bool andAllLater = false;
  bool hasFailed = false;

  bool Now() {
    if (!isOn) return false;
    if (left > 0) {
      --left;
      return false;
    }
    if (hasFailed && !andAllLater) return false;
    hasFailed = true;
    return true;
  }
};
thread_local Failing failing;

void* AllocateOrNull(std::size_t size, std::size_t alignment = 0) noexcept {
  if (failing.Now()) return nullptr;
  if (size == 0) size = 1;
  void* memory = alignment == 0 ? std::malloc(size)
                                : std::aligned_alloc(
                                      alignment, (size + alignment - 1) / alignment * alignment);
  if (memory == nullptr) return nullptr;
  ++live;
  const std::size_t bytes = liveBytes += SizeOf(memory);
  if (bytes > peakBytes) peakBytes = bytes;
  return memory;
}

void* OrThrow(void* memory) {
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

void Free(void* memory) noexcept {
  if (memory != nullptr) {
    --live;
    liveBytes -= SizeOf(memory);
  }
  std::free(memory);
}

}  // namespace

// The other forms come down to these, but for those that sanitizers bring and keep to themselves.
void* operator new(std::size_t size) {
  return OrThrow(AllocateOrNull(size));
}
void* operator new[](std::size_t size) {
  return OrThrow(AllocateOrNull(size));
}
void* operator new(std::size_t size, std::align_val_t alignment) {
  return OrThrow(AllocateOrNull(size, static_cast<std::size_t>(alignment)));
}
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return AllocateOrNull(size);
}
void operator delete(void* memory) noexcept {
  Free(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept {
  Free(memory);
}
void operator delete[](void* memory) noexcept {
  Free(memory);
}
void operator delete[](void* memory, std::size_t /*size*/) noexcept {
  Free(memory);
}
void operator delete(void* memory, std::align_val_t /*alignment*/) noexcept {
  Free(memory);
}
void operator delete(void* memory, std::size_t /*size*/, std::align_val_t /*alignment*/) noexcept {
  Free(memory);
}
void operator delete(void* memory, const std::nothrow_t& /*tag*/) noexcept {
  Free(memory);
}

namespace lipvane::test {

std::ptrdiff_t LiveAllocations() {
  return live;
}

std::size_t PeakBytesOf(const std::function<void()>& work) {
  const std::size_t before = liveBytes;
  peakBytes = before;
  work();
  return peakBytes - before;
}

FailingAllocation::FailingAllocation(std::size_t n, bool andAllLater) {
  failing = {true, n, andAllLater, false};
}

FailingAllocation::~FailingAllocation() {
  failing.isOn = false;
}

bool FailingAllocation::HasFailed() {
  return failing.hasFailed;
}

}  // namespace lipvane::test
