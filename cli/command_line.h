#pragma once

namespace lipvane::cli {

/// Reads the command line and does what it asks for; answers the exit status. What a subcommand or
/// the parser cannot deal with is thrown (std::bad_alloc for one).
int RunCommandLine(int argc, char** argv);

}  // namespace lipvane::cli
