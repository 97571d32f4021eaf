#pragma once

#include "lipvane/host/command.h"

namespace lipvane::plugin {

/// Makes both commands known to the host. Every registration is tried whatever became of the one
/// before; the last one's status is the result.
host::Status InitializePlugin(host::PluginLoader& loader);

/// Withdraws the commands; the last one's status is the result.
host::Status UninitializePlugin(host::PluginLoader& loader);

}  // namespace lipvane::plugin
