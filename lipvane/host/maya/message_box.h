#pragma once

#include <string>

#include "lipvane/host/host.h"

namespace lipvane::maya {

/// Shows a modal box and comes back when it is closed. In batch mode, and when the host does not
/// tell, nobody may be there to close it: title and text become one line of the host's output, as
/// they do when there is no box to be had.
void ShowMessageBox(const std::string& text, const std::string& title, host::BoxIcon icon);

}  // namespace lipvane::maya
