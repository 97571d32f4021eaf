#include "lipvane/engine/trace.h"

#include <cstdarg>
#include <cstdio>

#include "lipvane/engine/trail.h"

namespace lipvane {

void Trace(const char* format, ...) {
  char line[1024];
  std::va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(line, sizeof line, format, arguments);
  va_end(arguments);
#ifdef LIPVANE_TRAIL_SEAM
  if (seam::traced != nullptr) {
    seam::traced(line);
  }
#endif
}

}  // namespace lipvane
