#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "lipvane/host/standalone/code_page.h"

namespace lipvane::standalone {

/// A text of command lines and where it came from.
struct MelSource {
  std::string text;
  std::string name;             ///< of the file, or what else a message shall call it
  bool hasLineNumbers = false;  ///< messages say "NAME:LINE" rather than "NAME"
  CodePage page = {};           ///< of the scene whose names it holds
};

/// One command line.
struct MelCommand {
  std::string line;                ///< as it was written, without what surrounds it
  std::vector<std::string> words;  ///< the command's name first; never empty
  std::string place;               ///< "NAME" or "NAME:LINE"
  bool hasLineNumber = false;      ///< the place is "NAME:LINE"
};

/// A text that is not made of plain command lines: "PLACE: reason".
class MelError : public std::runtime_error {
 public:
  MelError(const std::string& what, std::string commandLine)
      : std::runtime_error(what), line(std::move(commandLine)) {}

  std::string line;  ///< the command at fault, as far as it was read
};

/// Splits a text into commands: words stand between white space, or in double quotes with the
/// escapes \" \\ \n \t \r (any other escaped character stands for itself); `;` ends a
/// command; `//` and `/* */` are comments. A line end is white space, but a line that begins with a
/// known command's name begins a new command, so that one command a line needs no `;`. What
/// belongs to the language but not to a plain command line (variables, expressions, blocks) is
/// refused. Throws MelError.
std::vector<MelCommand> SplitMel(const MelSource& source,
                                 const std::function<bool(const std::string&)>& isCommand);

}  // namespace lipvane::standalone
