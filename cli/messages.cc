#include "cli/messages.h"

#include <iostream>

namespace lipvane::cli {

std::string Printable(std::string text) {
  for (char& c : text) {
    const bool isControl = (c >= '\0' && c < ' ') || c == '\x7f';
    if (isControl && c != '\n' && c != '\t') c = '?';
  }
  return text;
}

void PrintLine(const std::string& text) {
  std::cerr << Printable(text);
  if (text.empty() || text.back() != '\n') std::cerr << '\n';
  std::cerr << std::flush;
}

void PrintError(const std::string& text) {
  PrintLine("Error: " + text);
}

void PrintProblem(const std::string& fileName, const ReadProblem& problem) {
  const std::string line = problem.line > 0 ? ":" + std::to_string(problem.line) : "";
  PrintError(fileName + line + ": " + problem.reason);
}

void PrintWarning(const std::string& text) {
  PrintLine("Warning: " + text);
}

void PrintMessage(const standalone::Message& message) {
  using Kind = standalone::Message::Kind;
  switch (message.kind) {
    case Kind::kError:
      return PrintError(message.text);
    case Kind::kWarning:
      return PrintWarning(message.text);
    case Kind::kDiagnostic:
      return PrintLine(message.label + ": " + message.text);
    case Kind::kBox:
      return PrintLine("[" + message.title + "] " + message.text);
  }
}

}  // namespace lipvane::cli
