#pragma once

#include <cstddef>

namespace lipvane::test {

/// How many allocations of operator new are alive, in the program and in what it has loaded. A
/// program counts when allocation_count.cc is linked into it.
std::ptrdiff_t LiveAllocations();

}  // namespace lipvane::test
