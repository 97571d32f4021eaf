#pragma once

#include <array>
#include <cstddef>

#include "lipvane/engine/wide/blend_loops.h"

namespace lipvane {

/// Gathers steps of different bones and does them several at a time, each bit for bit as _Blend
/// does it. What a step points to must stay where it is until then.
class StepBatch {
 public:
  void Add(const wide::Step& step);
  /// Does all that were added. To be called before a bone gets its next step, and at the end.
  void Flush();

 private:
  static constexpr std::size_t kMost = 64;
  std::size_t count_ = 0;
  std::array<wide::Step, kMost> steps_;
};

}  // namespace lipvane
