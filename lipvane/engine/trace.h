#pragma once

namespace lipvane {

/// Formats a line, printf style, cuts it to 1023 characters and forgets it: the engine is silent.
#if defined(__GNUC__)
__attribute__((format(printf, 1, 2)))
#endif
void Trace(const char* format, ...);

}  // namespace lipvane
