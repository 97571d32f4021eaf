#pragma once

#include <cstddef>

namespace lipvane::cli {

enum class Stream { kOutput = 1, kError = 2 };

bool IsTerminal(Stream stream);

/// How many characters fit on a line of the terminal; 0 when the stream is none that tells.
std::size_t TerminalWidth(Stream stream);

/// How wide text for people is to be: what COLUMNS says, else the terminal's width, else 80.
std::size_t TextWidth(Stream stream);

}  // namespace lipvane::cli
