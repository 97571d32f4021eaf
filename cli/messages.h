#pragma once

#include <string>

#include "lipvane/host/standalone/message.h"

namespace lipvane::cli {

/// Writes a line to standard error; a line end that the text brings along is not doubled.
void PrintLine(const std::string& text);
/// "Error: TEXT".
void PrintError(const std::string& text);
/// "Warning: TEXT".
void PrintWarning(const std::string& text);
/// A command's message, in the form of its kind.
void PrintMessage(const standalone::Message& message);

/// Writes a result to standard output. False, after saying so, when it could not all be written.
bool PrintResult(const std::string& text);

}  // namespace lipvane::cli
