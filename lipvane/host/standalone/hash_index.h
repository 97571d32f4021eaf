#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace lipvane::standalone {

/// From a hash to numbers, compactly; whoever asks compares what the numbers stand for.
class HashIndex {
 public:
  static constexpr std::uint32_t kNone = 0xFFFFFFFF;

  /// The first number under the hash that `isEqual` accepts, or kNone.
  template <class IsEqual>
  std::uint32_t Find(std::size_t hash, IsEqual isEqual) const {
    const std::size_t slot = FindSlot(Shorten(hash), isEqual);
    return slot == slots_.size() ? kNone : slots_[slot].value;
  }

  void Insert(std::size_t hash, std::uint32_t value) {
    if ((used_ + 1) * 4 > slots_.size() * 3) Grow();
    Place({Shorten(hash), value});
    ++used_;
    ++live_;
  }

  /// Puts another number in the place of one, or takes it out when `by` is kNone.
  void Replace(std::size_t hash, std::uint32_t value, std::uint32_t by) {
    const std::size_t slot =
        FindSlot(Shorten(hash), [value](std::uint32_t other) { return other == value; });
    if (slot == slots_.size()) return;
    slots_[slot].value = by == kNone ? kRemoved : by;
    if (by == kNone) --live_;
  }

 private:
  static constexpr std::uint32_t kRemoved = 0xFFFFFFFE;

  struct Slot {
    std::uint32_t hash = 0;
    std::uint32_t value = kNone;
  };

  static std::uint32_t Shorten(std::size_t hash) {
    return static_cast<std::uint32_t>(hash ^ (std::uint64_t{hash} >> 32));
  }

  template <class IsEqual>
  std::size_t FindSlot(std::uint32_t hash, IsEqual isEqual) const {
    if (slots_.empty()) return 0;
    const std::size_t mask = slots_.size() - 1;
    for (std::size_t i = hash & mask; slots_[i].value != kNone; i = (i + 1) & mask) {
      const Slot& slot = slots_[i];
      if (slot.hash == hash && slot.value != kRemoved && isEqual(slot.value)) return i;
    }
    return slots_.size();
  }

  void Place(Slot slot) {
    const std::size_t mask = slots_.size() - 1;
    std::size_t i = slot.hash & mask;
    while (slots_[i].value != kNone)
      i = (i + 1) & mask;
    slots_[i] = slot;
  }

  void Grow() {
    const std::size_t doubled = slots_.empty() ? 64 : slots_.size() * 2;
    // Many removed numbers: it is enough to sweep them out.
    std::vector<Slot> old(live_ * 2 < slots_.size() ? slots_.size() : doubled);
    old.swap(slots_);
    used_ = live_;
    for (const Slot& slot : old) {
      if (slot.value < kRemoved) Place(slot);
    }
  }

  std::vector<Slot> slots_;  // a power of two
  std::size_t used_ = 0;     // slots that are or were in use
  std::size_t live_ = 0;
};

}  // namespace lipvane::standalone
