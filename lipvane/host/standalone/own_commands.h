#pragma once

#include <string>
#include <vector>

#include "lipvane/host/standalone/standalone_host.h"
#include "lipvane/host/standalone/words.h"

/// The host's own commands, as much of them as a command line needs.
namespace lipvane::standalone {

/// The paths that a name of a command's means, or false and an error is displayed. A plain name
/// must mean one node.
bool FindObject(StandaloneHost& host, const std::string& name, std::vector<PathId>& paths);

/// What `select` accepts: -r/-replace (the default), -add, -cl/-clear, and names.
CommandSyntax SelectSyntax();
/// Changes the selection, or displays an error and leaves it alone. A plain name must mean one
/// node.
host::Status Select(StandaloneHost& host, const WordArgDatabase& flags,
                    const std::vector<std::string>& names);

/// What `currentTime` accepts: a frame, and -e/-edit, which changes nothing.
CommandSyntax CurrentTimeSyntax();
/// Moves the current time, or displays an error and leaves it alone.
host::Status CurrentTime(StandaloneHost& host, const WordArgDatabase& flags,
                         const std::vector<std::string>& frames);

}  // namespace lipvane::standalone
