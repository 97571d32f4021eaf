#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <new>
#include <string>

#include "cli/interruption.h"
#include "cli/messages.h"
#include "cli/subcommands.h"

namespace {

constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

std::string SubcommandNames(const CLI::App& app) {
  std::string names;
  for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
    names += names.empty() ? "" : ", ";
    names += command->get_name();
  }
  return names;
}

int Main(int argc, char** argv) {
  CLI::App app("Lip-sync animation of faces rigged with joints.", "lipvane");
  app.set_version_flag("--version", "lipvane " LIPVANE_VERSION);
  app.require_subcommand(0, 1);
  lipvane::cli::Work work;
  lipvane::cli::AddSubcommands(app, work);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) return app.exit(error);
    lipvane::cli::PrintError(error.what());
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

}  // namespace

int main(int argc, char** argv) {
  lipvane::cli::CleanUpWhenInterrupted();
  try {
    return Main(argc, argv);
  } catch (const std::bad_alloc&) {
    lipvane::cli::PrintError("out of memory");
  } catch (const std::exception& error) {
    lipvane::cli::PrintError(error.what());
  } catch (...) {
    lipvane::cli::PrintError("an unknown exception");
  }
  return kFailed;
}
