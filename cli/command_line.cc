#include "cli/command_line.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <string>

#include "cli/messages.h"
#include "cli/subcommands.h"

namespace lipvane::cli {
namespace {

constexpr int kWrongUsage = 2;

std::string SubcommandNames(const CLI::App& app) {
  std::string names;
  for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
    names += names.empty() ? "" : ", ";
    names += command->get_name();
  }
  return names;
}

}  // namespace

int RunCommandLine(int argc, char** argv) {
  CLI::App app("Lip-sync animation of faces rigged with joints.", "lipvane");
  app.set_version_flag("--version", "lipvane " LIPVANE_VERSION);
  app.require_subcommand(0, 1);
  Work work;
  AddSubcommands(app, work);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) return app.exit(error);
    PrintError(error.what());
    std::cerr << "lipvane --help and lipvane SUBCOMMAND --help say what is accepted; subcommands: "
              << SubcommandNames(app) << ".\n";
    return kWrongUsage;
  }
  if (!work) {
    std::cerr << app.help();
    return kWrongUsage;
  }
  return work();
}

}  // namespace lipvane::cli
