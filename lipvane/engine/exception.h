#pragma once

#include <string>

namespace lipvane {

/// The engine's one failure. `message` is the text that it was raised with, followed by its trail:
/// the qualified name of every engine method that it passed, innermost first, each followed by
/// " -> ". Catch it by reference.
struct TamskException {
  std::string message;

  void Append(const std::string& text) { message += text; }
};

}  // namespace lipvane
