#pragma once

#include <string>

#include "lipvane/formats/read_problem.h"
#include "lipvane/host/standalone/message.h"

namespace lipvane::cli {

/// The text for a terminal: names come from files of strangers, whose control characters become
/// "?". Line feeds and tabs stay.
std::string Printable(std::string text);

/// Writes a line to standard error, printable; a line end that the text brings along is not
/// doubled.
void PrintLine(const std::string& text);
/// "Error: TEXT".
void PrintError(const std::string& text);
/// "Error: FILE:LINE: REASON"; no line when the file as a whole is meant.
void PrintProblem(const std::string& fileName, const ReadProblem& problem);
/// "Warning: TEXT".
void PrintWarning(const std::string& text);
/// A command's message, in the form of its kind.
void PrintMessage(const standalone::Message& message);

}  // namespace lipvane::cli
