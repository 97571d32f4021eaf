#pragma once

#include <string>

namespace lipvane {

/// The engine's one failure. Behind its first words `message` gathers a trail: as the failure goes
/// up, each engine method adds its qualified name and " -> ". Catch it by reference.
struct TamskException {
  std::string message;

  void Append(const std::string& text) { message += text; }
};

}  // namespace lipvane
