#pragma once

#include <memory>
#include <string>

#include "lipvane/host/arguments.h"
#include "lipvane/host/status.h"
#include "lipvane/host/syntax.h"

namespace lipvane::host {

class Host;

/// One invocation of a command: made by its creator, run once, destroyed.
class Command {
 public:
  virtual ~Command() = default;
  virtual Status DoIt(const Arguments& arguments) = 0;
};

/// Makes one invocation; null when there is no memory for it.
using CommandCreator = std::unique_ptr<Command> (*)(Host& host);
using SyntaxFunction = Syntax (*)();

/// Where one plug-in makes its commands known to the host.
class CommandRegistry {
 public:
  virtual ~CommandRegistry() = default;
  virtual Status RegisterCommand(const std::string& name, CommandCreator creator,
                                 SyntaxFunction syntax) = 0;
  virtual Status DeregisterCommand(const std::string& name) = 0;
};

/// The host's side of loading one plug-in.
class PluginLoader {
 public:
  virtual ~PluginLoader() = default;
  /// The registry of this plug-in, under the identity that it declares.
  virtual std::unique_ptr<CommandRegistry> OpenRegistry(const std::string& vendor,
                                                        const std::string& version,
                                                        const std::string& requiredApiVersion) = 0;
};

}  // namespace lipvane::host
