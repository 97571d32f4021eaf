#pragma once

#include <string>

#include "lipvane/host/host.h"

namespace lipvane::maya {

/// Shows a modal box with one button and comes back when it is closed: the system's own on
/// Windows, elsewhere the host's dialog. False when none was shown.
bool ShowModalBox(const std::string& text, const std::string& title, host::BoxIcon icon);

}  // namespace lipvane::maya
