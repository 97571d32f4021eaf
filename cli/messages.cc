#include "cli/messages.h"

#include <iostream>

#include "lipvane/text/printable.h"

namespace lipvane::cli {

void PrintLine(const std::string& text) {
  std::cerr << text::Printable(text);
  if (text.empty() || text.back() != '\n') std::cerr << '\n';
  std::cerr << std::flush;
}

void PrintError(const std::string& text) {
  PrintLine("Error: " + text);
}

void PrintProblem(const std::string& fileName, const ReadProblem& problem) {
  PrintError(problem.Text(fileName));
}

void PrintWarning(const std::string& text) {
  PrintLine("Warning: " + text);
}

void PrintNote(const std::string& text) {
  PrintLine("Note: " + text);
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
    case Kind::kNote:
      return PrintNote(message.text);
  }
}

}  // namespace lipvane::cli
