#pragma once

#include <CLI/CLI.hpp>
#include <functional>

namespace lipvane::cli {

/// What a command line asks for; answers the exit status.
using Work = std::function<int()>;

/// The subcommand that says what the others accept.
inline constexpr char kHelp[] = "help";

/// Adds every subcommand. One whose arguments are read sets `work`, which must outlive the app.
void AddSubcommands(CLI::App& app, Work& work);

}  // namespace lipvane::cli
