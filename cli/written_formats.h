#pragma once

#include <string>

namespace lipvane::cli {

/// Why `writer` (a subcommand or an option that names a result) does not write a file of this name:
/// its ending promises another format. Empty when it may. Names without an ending promise nothing,
/// nor do standard output and what is there and no regular file (a device, a pipe).
std::string BrokenPromise(const std::string& writer, const std::string& fileName);

}  // namespace lipvane::cli
