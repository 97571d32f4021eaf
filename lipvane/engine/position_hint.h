#pragma once

#include <atomic>
#include <cstddef>

namespace lipvane {

/// Where a search ended last, to begin the next one at. It may be anything: who reads it checks it.
/// Threads may share it, and copies begin anew.
class PositionHint {
 public:
  PositionHint() = default;
  PositionHint(const PositionHint& /*other*/) noexcept {}
  PositionHint& operator=(const PositionHint& /*other*/) noexcept { return *this; }
  ~PositionHint() = default;

  std::size_t Get() const { return position_.load(std::memory_order_relaxed); }
  void Set(std::size_t position) const { position_.store(position, std::memory_order_relaxed); }

 private:
  mutable std::atomic<std::size_t> position_{0};
};

}  // namespace lipvane
