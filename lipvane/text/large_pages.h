#pragma once

#include <cstddef>

namespace lipvane::text {

/// Asks the system to back room that is not yet written to with large pages, where it has them. The
/// first write into each page of 4 KB costs more than to fill it from a file; of 2 MB, next to
/// nothing. Advice alone: without it, and for room that is too small for it, nothing changes.
void UseLargePages(char* room, std::size_t size);

}  // namespace lipvane::text
