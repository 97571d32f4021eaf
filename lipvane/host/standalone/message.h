#pragma once

#include <functional>
#include <string>

namespace lipvane::standalone {

/// Something a command shows to its user.
struct Message {
  enum class Kind { kError, kWarning, kDiagnostic, kBox, kNote };

  Kind kind = Kind::kError;
  std::string text;
  std::string label;  ///< what failed, of a diagnostic
  std::string title;  ///< of a box
};

/// Hears every message as it comes.
using MessageSink = std::function<void(const Message&)>;

}  // namespace lipvane::standalone
