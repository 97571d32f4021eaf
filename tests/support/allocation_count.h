#pragma once

#include <cstddef>
#include <functional>

namespace lipvane::test {

/// How many allocations of operator new are alive, in the program and in what it has loaded. A
/// program counts when allocation_count.cc is linked into it.
std::ptrdiff_t LiveAllocations();

/// How many bytes of operator new more than before were in use at most while the work was done, by
/// this thread alone.
std::size_t PeakBytesOf(const std::function<void()>& work);

}  // namespace lipvane::test
