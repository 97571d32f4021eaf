#pragma once

#include <string>

#include "lipvane/host/host.h"

namespace lipvane::maya {

/// Whether nobody sits before the host to answer a box; also when the host does not tell.
bool IsBatch();

/// Prints title and text as one line of the host's output.
void PrintMessageLine(const std::string& text, const std::string& title);

/// Shows a modal box with one button and comes back when it is closed: the system's own on
/// Windows, elsewhere the host's.
void ShowMessageBox(const std::string& text, const std::string& title, host::BoxIcon icon);

}  // namespace lipvane::maya
