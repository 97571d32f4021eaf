#pragma once

#include <string>
#include <string_view>

#include "lipvane/host/standalone/limits.h"

namespace lipvane::standalone {

/// A name for a message: of a very long one the beginning, before "...". A file says a name once
/// and may give reason for any number of messages that hold it.
inline std::string ShownName(std::string_view name) {
  if (name.size() <= kMaxShownPath) return std::string(name);
  return std::string(name.substr(0, kMaxShownPath)) + "...";
}

}  // namespace lipvane::standalone
