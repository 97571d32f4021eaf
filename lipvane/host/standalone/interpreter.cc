#include "lipvane/host/standalone/interpreter.h"

#include <algorithm>
#include <exception>
#include <new>
#include <utility>

#include "lipvane/host/standalone/key_commands.h"
#include "lipvane/host/standalone/own_commands.h"
#include "lipvane/text/printable.h"
#include "lipvane/text/similar.h"

namespace lipvane::standalone {

bool CommandOutcome::Failed() const {
  return !status.ok() || std::any_of(messages.begin(), messages.end(), [](const Message& message) {
    return message.kind == Message::Kind::kError;
  });
}

class Interpreter::Registry : public host::CommandRegistry {
 public:
  explicit Registry(Interpreter& interpreter) : interpreter_(interpreter) {}

  host::Status RegisterCommand(const std::string& name, host::CommandCreator creator,
                               host::SyntaxFunction syntax) override {
    Entry entry;
    if (syntax != nullptr) entry.syntax.flags = syntax();
    entry.run = [&host = interpreter_.host_, creator](const std::vector<std::string>& arguments,
                                                      const std::vector<std::string>&) {
      const auto command = creator(host);
      return command ? command->DoIt(WordArguments(arguments)) : host::StatusCode::kFailure;
    };
    const bool added = interpreter_.commands_.emplace(name, std::move(entry)).second;
    return added ? host::StatusCode::kSuccess : host::StatusCode::kFailure;
  }

  host::Status DeregisterCommand(const std::string& name) override {
    const auto entry = interpreter_.commands_.find(name);
    if (entry == interpreter_.commands_.end() || entry->second.isOwn) {
      return host::StatusCode::kFailure;
    }
    interpreter_.commands_.erase(entry);
    return {};
  }

 private:
  Interpreter& interpreter_;
};

Interpreter::Interpreter(Scene& scene, MessageSink sink)
    : sink_([this, sink = std::move(sink)](const Message& message) {
        messages_.push_back(message);
        if (sink) sink(message);
      }),
      host_(scene, sink_) {
  AddOwn("select", SelectSyntax(), &Select);
  AddOwn("currentTime", CurrentTimeSyntax(), &CurrentTime);
  AddOwn("setKeyframe", SetKeyframeSyntax(), &SetKeyframe);
  AddOwn("getAttr", GetAttrSyntax(), &GetAttr);
  AddOwn("undoInfo", UndoInfoSyntax(), &UndoInfo);
}

void Interpreter::AddOwn(const std::string& name, const CommandSyntax& syntax, OwnCommand command) {
  Entry& entry = commands_[name];
  entry.syntax = syntax;
  entry.syntax.isStrict = true;
  entry.isOwn = true;
  entry.run = [this, &flags = entry.syntax.flags, command](
                  const std::vector<std::string>& arguments,
                  const std::vector<std::string>& objects) {
    return command(host_, WordArgDatabase(flags, WordArguments(arguments)), objects);
  };
}

std::unique_ptr<host::CommandRegistry> Interpreter::OpenRegistry(
    const std::string& /*vendor*/, const std::string& /*version*/,
    const std::string& /*requiredApiVersion*/) {
  return std::make_unique<Registry>(*this);
}

bool Interpreter::Knows(const std::string& command) const {
  return commands_.find(command) != commands_.end();
}

std::vector<std::string> Interpreter::CommandNames() const {
  std::vector<std::string> names;
  for (const auto& [name, entry] : commands_)
    names.push_back(name);
  return names;
}

CommandOutcome Interpreter::Run(const std::vector<std::string>& words) {
  messages_.clear();
  host_.BeginCommand();
  CommandOutcome outcome;
  if (!words.empty()) outcome.status = RunChecked(words);
  outcome.messages = std::move(messages_);
  return outcome;
}

host::Status Interpreter::RunChecked(const std::vector<std::string>& words) {
  const auto entry = commands_.find(words[0]);
  if (entry == commands_.end()) {
    std::string known;
    for (const std::string& name : CommandNames())
      known += (known.empty() ? "" : ", ") + name;
    const std::string meant = text::DidYouMean(words[0], CommandNames());
    host_.DisplayError("unknown command " + text::QuotedLine(words[0]) + meant +
                       (meant.empty() ? "; the" : " The") + " commands are " + known);
    return host::StatusCode::kFailure;
  }
  const std::vector<std::string> arguments(words.begin() + 1, words.end());
  const WordCheck check = CheckWords(words[0], entry->second.syntax, arguments);
  if (!check.error.empty()) {
    host_.DisplayError(check.error);
    return host::StatusCode::kFailure;
  }
  for (const std::string& note : check.notes)
    sink_({Message::Kind::kNote, note, {}, {}});
  // Whatever escapes a command is its failure and not the end of the program.
  try {
    const host::Status status = entry->second.run(arguments, check.objects);
    host_.EndCommand();
    return status;
  } catch (const std::bad_alloc&) {
    host_.DisplayError(words[0] + ": out of memory");
  } catch (const std::exception& error) {
    host_.DisplayError(words[0] + ": " + error.what());
  } catch (...) {
    host_.DisplayError(words[0] + ": ended by an unknown exception");
  }
  return host::StatusCode::kFailure;
}

}  // namespace lipvane::standalone
