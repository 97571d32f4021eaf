#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace lipvane::cli {

/// The names of all subcommands, in their order.
std::vector<std::string> SubcommandNames(const CLI::App& app);

/// The sentence on a word that is none of them.
std::string NoSubcommand(const CLI::App& app, const std::string& word);

/// What is wrong with the command line that the parser of `app` threw `error` at, a sentence each.
std::vector<std::string> UsageProblems(const CLI::App& app, const CLI::ParseError& error);

}  // namespace lipvane::cli
