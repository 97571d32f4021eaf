#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <new>

/// Every operator new, in the program and in what it has loaded. A program has this when
/// allocations.cc is linked into it.
namespace lipvane::test {

/// How many allocations are alive.
std::ptrdiff_t LiveAllocations();

/// How many bytes more than before were in use at most while the work was done, by this thread
/// alone.
std::size_t PeakBytesOf(const std::function<void()>& work);

/// While it lives, one allocation of this thread fails, or all from that one on.
class FailingAllocation {
 public:
  FailingAllocation(std::size_t n, bool andAllLater);
  FailingAllocation(const FailingAllocation&) = delete;
  FailingAllocation& operator=(const FailingAllocation&) = delete;
  ~FailingAllocation();

  static bool HasFailed();
};

/// One try of a work that is short of memory.
class Shortage {
 public:
  Shortage(std::size_t n, bool andAllLater) : n_(n), andAllLater_(andAllLater) {}

  /// Does the work; false when std::bad_alloc came out of it. To be called once.
  template <typename Work>
  bool Do(const Work& work) {
    const FailingAllocation failing(n_, andAllLater_);
    bool isDone = true;
    try {
      work();
    } catch (const std::bad_alloc&) {
      isDone = false;
    }
    hasCome_ = FailingAllocation::HasFailed();
    return isDone;
  }
  /// Whether an allocation failed; if not, the work was done with memory enough.
  bool HasCome() const { return hasCome_; }

 private:
  std::size_t n_;
  bool andAllLater_;
  bool hasCome_ = false;
};

/// Calls `tryOnce(Shortage&)` with ever later allocations failing until none does, and expects that
/// nothing is left alive each time.
template <typename Try>
void ForEachAllocation(const Try& tryOnce) {
  Shortage never(static_cast<std::size_t>(-1), false);
  tryOnce(never);  // makes what is made once and kept
  for (const bool andAllLater : {false, true}) {
    bool hasCome = true;
    // From a hundred on the loops of the work come round again.
    for (std::size_t n = 0; hasCome; n += n < 128 ? 1 : n / 12) {
      const std::ptrdiff_t before = LiveAllocations();
      Shortage shortage(n, andAllLater);
      tryOnce(shortage);
      hasCome = shortage.HasCome();
      EXPECT_TRUE(hasCome || n > 0) << "the work takes no memory";
      EXPECT_EQ(LiveAllocations(), before);
      if (testing::Test::HasFailure()) {
        FAIL() << "allocation " << n << (andAllLater ? " and all later ones" : "");
      }
    }
  }
}

}  // namespace lipvane::test
