// Built for AVX where the compiler can do so. Nothing of the standard library that has code is
// included here: the linker might take this file's copy of it for all others.

#include "lipvane/engine/wide/blend_loops.h"

#if defined(__AVX__) && defined(__GNUC__)

#include "lipvane/engine/wide/lanes_avx.h"
#include "lipvane/engine/wide/loops_on.h"

namespace lipvane::wide {

const BlendLoops* AvxLoops() {
  return __builtin_cpu_supports("avx") ? &kLoopsOn<AvxLanes> : nullptr;
}

}  // namespace lipvane::wide

#else

namespace lipvane::wide {

const BlendLoops* AvxLoops() {
  return nullptr;
}

}  // namespace lipvane::wide

#endif
