#include <CLI/CLI.hpp>
#include <cstddef>
#include <exception>
#include <filesystem>
#include <functional>
#include <iostream>
#include <memory>
#include <string>
#include <system_error>
#include <vector>

#include "cli/check.h"
#include "cli/inspect.h"
#include "cli/messages.h"
#include "cli/run.h"

namespace {

constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

/// Would one result take the place of the other?
bool AreOneFile(const std::string& output, const std::string& report) {
  namespace fs = std::filesystem;
  if (output.empty() || report.empty() || report == "-") return false;
  std::error_code error;
  if (fs::exists(output, error) && !fs::is_regular_file(output, error)) return false;
  const auto whole = [&error](const std::string& name) {
    return fs::weakly_canonical(fs::absolute(name, error), error);
  };
  return whole(output) == whole(report);
}

/// Adds a subcommand, and to `work` what it does once the arguments are read.
using Work = std::function<int()>;

void AddRun(CLI::App& app, Work& work) {
  CLI::App* command = app.add_subcommand("run", "Open a scene, run command lines, save it");
  struct Values {
    lipvane::cli::RunOptions options;
    std::vector<std::string> lines;
    std::vector<std::string> files;
  };
  const auto values = std::make_shared<Values>();
  command->add_option("SCENE", values->options.scene, "Maya ASCII scene (.ma)")->required();
  CLI::Option* lines = command->add_option(
      "-e", values->lines,
      "Command lines, separated by \";\". They run in the order of all -e and -f");
  lines->allow_extra_args(false)->type_name("MEL");
  CLI::Option* files = command->add_option("-f", values->files, "File of command lines");
  files->allow_extra_args(false)->type_name("FILE");
  CLI::Option* output = command->add_option("-o", values->options.output, "Save the scene here");
  output->type_name("OUT");
  CLI::Option* report = command->add_option(
      "--report", values->options.report, "Write what happened as JSON here; - is standard output");
  report->type_name("FILE");
  command->footer(
      "The commands are facialAnim, demBonesExportPoses, select and currentTime. Each ends at a\n"
      "\";\", at the end of its text, or before a line that begins with a command's name.");

  command->callback([=, &work] {
    lipvane::cli::RunOptions& options = values->options;
    for (const CLI::Option* file : {output, report}) {
      // An unset variable of a script's must not lose its work in silence.
      if (file->count() > 0 && file->as<std::string>().empty()) {
        throw CLI::ValidationError(file->get_name(), "needs the name of a file");
      }
    }
    if (AreOneFile(options.output, options.report)) {
      throw CLI::ValidationError("-o and --report", "name the same file, " + options.output);
    }
    std::size_t line = 0;
    std::size_t file = 0;
    for (const CLI::Option* option : command->parse_order()) {
      if (option == lines) {
        const std::string& text = values->lines[line++];
        options.scripts.push_back({false, text, "-e " + std::to_string(line)});
      } else if (option == files) {
        const std::string& name = values->files[file++];
        options.scripts.push_back({true, name, name});
      }
    }
    work = [values] { return lipvane::cli::Run(values->options); };
  });
}

void AddInspect(CLI::App& app, Work& work) {
  CLI::App* command =
      app.add_subcommand("inspect", "Say what is in a bone pose file (LBP) or a scene");
  struct Values {
    std::string file;
    bool asJson = false;
  };
  const auto values = std::make_shared<Values>();
  command->add_option("FILE", values->file, "File to read")->required();
  command->add_flag("--json", values->asJson, "Everything, as JSON");
  command->callback([=, &work] {
    work = [values] { return lipvane::cli::Inspect(values->file, values->asJson); };
  });
}

void AddCheck(CLI::App& app, Work& work) {
  CLI::App* command = app.add_subcommand(
      "check", "Say what is odd about bone pose files (LBP) and animation files (LTF)");
  struct Values {
    std::vector<std::string> files;
    std::string scene;
    bool asJson = false;
  };
  const auto values = std::make_shared<Values>();
  command->add_option("FILE", values->files, "Files to check")->required();
  CLI::Option* scene = command->add_option("--scene", values->scene,
                                           "Hold bone pose files against this scene (.ma)");
  scene->type_name("SCENE");
  command->add_flag("--json", values->asJson, "The findings as JSON");
  command->callback([=, &work] {
    if (scene->count() > 0 && values->scene.empty()) {
      throw CLI::ValidationError(scene->get_name(), "needs the name of a file");
    }
    work = [values] { return lipvane::cli::Check(values->files, values->scene, values->asJson); };
  });
}

int Main(int argc, char** argv) {
  CLI::App app("Lip-sync poses for faces rigged with joints.", "lipvane");
  app.set_version_flag("--version", "lipvane " LIPVANE_VERSION);
  app.require_subcommand(0, 1);
  Work work;
  AddRun(app, work);
  AddInspect(app, work);
  AddCheck(app, work);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) return app.exit(error);
    lipvane::cli::PrintError(error.what());
    std::cerr << "lipvane --help and lipvane SUBCOMMAND --help say what is accepted; subcommands: "
                 "run, inspect, check.\n";
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
  try {
    return Main(argc, argv);
  } catch (const std::exception& error) {
    lipvane::cli::PrintError(error.what());
  } catch (...) {
    lipvane::cli::PrintError("an unknown exception");
  }
  return kFailed;
}
