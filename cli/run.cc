#include "cli/run.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <optional>
#include <ostream>
#include <utility>

#include "cli/input.h"
#include "cli/messages.h"
#include "cli/output.h"
#include "cli/progress.h"
#include "cli/report.h"
#include "cli/run_notes.h"
#include "cli/scene_file.h"
#include "lipvane/host/standalone/interpreter.h"
#include "lipvane/host/standalone/mel.h"
#include "lipvane/host/standalone/scene.h"
#include "lipvane/plugin/registration.h"

namespace lipvane::cli {
namespace {

using standalone::Interpreter;
using standalone::MelCommand;
using standalone::Message;
using standalone::Scene;

bool ReadScript(const Script& script, const standalone::CodePage& page,
                standalone::MelSource& source) {
  source = {script.text, script.name, script.isFile, page};
  if (!script.isFile) return true;
  auto inputs = ReadInputs({{script.text, FileFormat::kUnknown, "-f", "command lines"}});
  if (!inputs) return false;
  source.text = std::move(inputs->front().text);
  return true;
}

/// Reads every command line before the first runs, so that a slip in the last one costs nothing.
/// One that cannot be read is recorded as a command that failed.
bool ReadCommands(const std::vector<Script>& scripts, const standalone::CodePage& page,
                  const Interpreter& interpreter, std::vector<MelCommand>& commands,
                  std::vector<CommandRecord>& records) {
  for (const Script& script : scripts) {
    standalone::MelSource source;
    if (!ReadScript(script, page, source)) return false;
    try {
      auto more = standalone::SplitMel(
          source, [&](const std::string& word) { return interpreter.Knows(word); });
      std::move(more.begin(), more.end(), std::back_inserter(commands));
    } catch (const standalone::MelError& error) {
      const Message message{Message::Kind::kError, error.what(), {}, {}};
      PrintMessage(message);
      records.push_back({error.line, {host::StatusCode::kFailure, {message}}});
      return false;
    }
  }
  return true;
}

bool RunCommands(Interpreter& interpreter, const std::vector<MelCommand>& commands,
                 std::vector<CommandRecord>& records, Progress& progress) {
  for (std::size_t i = 0; i < commands.size(); ++i) {
    progress.Show("Running", i, commands.size());
    records.push_back({commands[i].line, interpreter.Run(commands[i].words)});
    standalone::CommandOutcome& outcome = records.back().outcome;
    if (!outcome.Failed()) {
      for (const std::string& note : NotesOnCommand(commands[i].words, interpreter.GetHost())) {
        outcome.messages.push_back({Message::Kind::kNote, note, {}, {}});
        progress.Erase();
        PrintMessage(outcome.messages.back());
      }
      continue;
    }
    const bool isSilent =
        std::none_of(outcome.messages.begin(), outcome.messages.end(), [](const Message& message) {
          return message.kind == Message::Kind::kError || message.kind == Message::Kind::kBox;
        });
    // Its messages name no place; on the command line itself the command is in sight.
    if (isSilent || commands[i].hasLineNumber) {
      progress.Erase();
      PrintError(commands[i].place + ": the command failed" +
                 (isSilent ? " without a message: " : ": ") + commands[i].line);
    }
    return false;
  }
  return true;
}

}  // namespace

int Run(const RunOptions& options) {
  if (!FolderExists(options.output) || !FolderExists(options.report)) return 1;

  Progress progress;
  auto inputs = ReadInputs({{options.scene, FileFormat::kScene}});
  if (!inputs) return 1;
  const std::string sceneName = inputs->front().name;
  std::optional<Scene> scene = OpenScene(std::move(inputs->front()), progress);
  if (!scene || !HasNamespace(*scene, sceneName, options.nameSpace)) return 1;

  Interpreter interpreter(*scene, [&](const Message& message) {
    progress.Erase();
    PrintMessage(message);
  });
  interpreter.SetNamespace(options.nameSpace);
  plugin::InitializePlugin(interpreter);
  std::vector<MelCommand> commands;
  std::vector<CommandRecord> records;
  bool ok = ReadCommands(options.scripts, scene->Page(), interpreter, commands, records) &&
            RunCommands(interpreter, commands, records, progress);
  plugin::UninitializePlugin(interpreter);

  progress.Erase();
  if (ok && !options.output.empty()) {
    ok = SaveScene(*scene, options.output, progress);
  }
  if (!options.report.empty()) {
    try {
      const std::string report = RunReport(records, *scene, interpreter.GetHost());
      ok = WriteOutput(options.report, [&](std::ostream& out) { out << report; }) && ok;
    } catch (const ReportError& error) {
      PrintError(options.report + ": " + error.what());
      ok = false;
    }
  }
  return ok ? 0 : 1;
}

}  // namespace lipvane::cli
