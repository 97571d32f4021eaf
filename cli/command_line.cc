#include "cli/command_line.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <string>

#include "cli/help.h"
#include "cli/messages.h"
#include "cli/subcommands.h"
#include "cli/terminal.h"
#include "cli/wrong_usage.h"

namespace lipvane::cli {
namespace {

constexpr int kWrongUsage = 2;

int RefuseUsage(const CLI::App& app, const CLI::ParseError& error) {
  for (const std::string& problem : UsageProblems(app, error))
    PrintError(problem);
  const HelpFormatter formatter(TextWidth(Stream::kError));
  const auto chosen = app.get_subcommands();
  std::string name = app.get_name();
  if (chosen.empty() || chosen.front()->get_name() == kHelp) {
    std::string names;
    for (const std::string& subcommand : SubcommandNames(app))
      names += (names.empty() ? "" : ", ") + subcommand;
    std::cerr << Wrapped("Subcommands: " + names, TextWidth(Stream::kError)) << '\n';
  } else {
    name += " " + chosen.front()->get_name();
    std::cerr << formatter.make_usage(chosen.front(), name);
  }
  std::cerr << name << " --help says more.\n";
  return kWrongUsage;
}

}  // namespace

int RunCommandLine(int argc, char** argv) {
  CLI::App app("Lip-sync animation of faces rigged with joints.", "lipvane");
  app.set_help_flag("-h,--help", "Say what is accepted");
  app.set_version_flag("--version", "lipvane " LIPVANE_VERSION, "Say the version");
  app.require_subcommand(0, 1);
  app.formatter(std::make_shared<HelpFormatter>(TextWidth(Stream::kOutput)));
  Work work;
  AddSubcommands(app, work);
  app.footer(
      "\"lipvane help SUBCOMMAND\" says more about one. Where a file is read or written, - stands "
      "for standard input or output.");
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) return app.exit(error);
    return RefuseUsage(app, error);
  }
  if (!work) {
    app.formatter(std::make_shared<HelpFormatter>(TextWidth(Stream::kError)));
    std::cerr << app.help();
    return kWrongUsage;
  }
  return work();
}

}  // namespace lipvane::cli
