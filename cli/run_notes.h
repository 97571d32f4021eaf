#pragma once

#include <string>
#include <vector>

#include "lipvane/host/standalone/standalone_host.h"

namespace lipvane::cli {

/// What a user should know of a command that succeeded and that it does not say itself: names of an
/// export that match no joint, or several; how many bones of an import got keys; a selection that
/// ended empty. `words` are the command's name and its arguments. The command must be the last one
/// that ran on the host.
std::vector<std::string> NotesOnCommand(const std::vector<std::string>& words,
                                        const standalone::StandaloneHost& host);

}  // namespace lipvane::cli
