#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "lipvane/host/command.h"
#include "lipvane/host/standalone/message.h"
#include "lipvane/host/standalone/scene.h"
#include "lipvane/host/standalone/standalone_host.h"
#include "lipvane/host/standalone/words.h"

namespace lipvane::standalone {

/// What became of one command line.
struct CommandOutcome {
  host::Status status;
  std::vector<Message> messages;  ///< in the order in which they came

  /// The command says so, or it displayed an error.
  bool Failed() const;
};

/// Runs command lines on a scene by name: the host's own commands, and those that a plug-in
/// registers here.
class Interpreter : public host::PluginLoader {
 public:
  /// The scene must outlive the interpreter. `sink` hears every message as it comes.
  Interpreter(Scene& scene, MessageSink sink);
  Interpreter(const Interpreter&) = delete;
  Interpreter& operator=(const Interpreter&) = delete;

  /// A name that is taken cannot be registered, nor one that is unknown deregistered. The
  /// interpreter must outlive the registry.
  std::unique_ptr<host::CommandRegistry> OpenRegistry(
      const std::string& vendor, const std::string& version,
      const std::string& requiredApiVersion) override;

  /// Of the names that commands look for: StandaloneHost::SetNamespace.
  void SetNamespace(const std::string& nameSpace) { host_.SetNamespace(nameSpace); }

  bool Knows(const std::string& command) const;
  /// In alphabetical order.
  std::vector<std::string> CommandNames() const;

  /// Runs the command that the first word names with the others. A flag that it does not know is an
  /// error that says what it does accept, and the command is not run. What else has no place is
  /// passed over with a note, as the host passes it over; the host's own commands refuse it.
  CommandOutcome Run(const std::vector<std::string>& words);

  const StandaloneHost& GetHost() const { return host_; }

 private:
  class Registry;
  /// Runs a command whose words have been checked; `objects` belong to no flag.
  using Runner = std::function<host::Status(const std::vector<std::string>& arguments,
                                            const std::vector<std::string>& objects)>;
  struct Entry {
    CommandSyntax syntax;
    Runner run;
    bool isOwn = false;
  };
  using OwnCommand = host::Status (*)(StandaloneHost&, const WordArgDatabase&,
                                      const std::vector<std::string>&);

  void AddOwn(const std::string& name, const CommandSyntax& syntax, OwnCommand command);
  host::Status RunChecked(const std::vector<std::string>& words);

  std::vector<Message> messages_;  // of the command that runs
  MessageSink sink_;
  StandaloneHost host_;
  std::map<std::string, Entry> commands_;
};

}  // namespace lipvane::standalone
