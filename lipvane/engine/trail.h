#pragma once

#include <utility>

#include "lipvane/engine/exception.h"

namespace lipvane {

#ifdef LIPVANE_TRAIL_SEAM
/// Ways in for tests, which build the engine once more with LIPVANE_TRAIL_SEAM for them. An
/// ordinary build has no trace of them.
namespace seam {
/// Called with its entry when a method of the trail begins, as part of its body: may throw.
inline void (*entered)(const char* entry) = nullptr;
/// Called with every trace line.
inline void (*traced)(const char* line) = nullptr;
}  // namespace seam
/// Whether a failure may leave a destructor. Only the seam raises one there; in an ordinary build
/// nothing can, and engine values go wherever values go (arrays move them, fixtures hold them).
inline constexpr bool kDestructorsRaise = true;
#else
inline constexpr bool kDestructorsRaise = false;
#endif

/// Runs the body of an engine method. A TamskException that leaves it gets the method's entry and
/// the separator and goes on as the same object; any other exception passes untouched.
template <typename Body>
decltype(auto) Trail(const char* entry, Body&& body) {
  try {
#ifdef LIPVANE_TRAIL_SEAM
    if (seam::entered != nullptr) {
      seam::entered(entry);
    }
#endif
    return std::forward<Body>(body)();
  } catch (TamskException& failure) {
    failure.Append(entry);
    failure.Append(" -> ");
    throw;
  }
}

}  // namespace lipvane
