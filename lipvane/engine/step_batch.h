#pragma once

#include <array>
#include <cstddef>

#include "lipvane/engine/wide/blend_loops.h"

namespace lipvane {

/// Gathers steps of different bones, to be done several at a time, each as _Blend does it. What
/// they lead to stays where it is until then.
class StepBatch {
 public:
  void Add(const wide::Step& step);
  /// Does all that were added. To be called before the first second step of a bone, and at the end.
  void Flush();

 private:
  static constexpr std::size_t kMost = 64;
  std::size_t count_ = 0;
  std::array<wide::Step, kMost> steps_;
};

}  // namespace lipvane
