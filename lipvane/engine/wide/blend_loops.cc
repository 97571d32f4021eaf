#include "lipvane/engine/wide/blend_loops.h"

#include "lipvane/engine/wide/lanes_plain.h"
#include "lipvane/engine/wide/loops_on.h"
#if defined(__SSE2__) || defined(_M_X64)
#include "lipvane/engine/wide/lanes_sse2.h"
#endif

namespace lipvane::wide {

const BlendLoops& PlainLoops() {
  return kLoopsOn<PlainLanes>;
}

const BlendLoops& BaselineLoops() {
#if defined(__SSE2__) || defined(_M_X64)
  return kLoopsOn<Sse2Lanes>;
#else
  return PlainLoops();
#endif
}

}  // namespace lipvane::wide
