#pragma once

#include <string>

#include "lipvane/formats/read_problem.h"
#include "lipvane/host/standalone/message.h"

namespace lipvane::cli {

/// Writes a text to standard error, printable, as a line or more; a line end that the text brings
/// along is not doubled.
void PrintLine(const std::string& text);
/// "Error: TEXT".
void PrintError(const std::string& text);
/// "Error: FILE:LINE: REASON"; no line when the file as a whole is meant.
void PrintProblem(const std::string& fileName, const ReadProblem& problem);
/// "Warning: TEXT".
void PrintWarning(const std::string& text);
/// "Note: TEXT".
void PrintNote(const std::string& text);
/// A command's message, in the form of its kind.
void PrintMessage(const standalone::Message& message);

}  // namespace lipvane::cli
