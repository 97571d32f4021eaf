#pragma once

#include <maya/MArgList.h>
#include <maya/MPxCommand.h>
#include <maya/MStatus.h>
#include <maya/MSyntax.h>

#include <new>

#include "lipvane/host/command.h"
#include "lipvane/host/maya/maya_arguments.h"
#include "lipvane/host/maya/maya_host.h"

namespace lipvane::maya {

/// Runs a command that calls that host, which then warns of keys that were lost. An exception that
/// is not the engine's becomes an error message and a failure.
MStatus RunCommand(host::Command& command, MayaHost& host, const MArgList& arguments);

/// One of our commands as a command class of the host: an object an invocation, which the host owns
/// and deletes. The command goes first, then what it calls the host by.
template <class Command>
class MayaCommand : public MPxCommand {
 public:
  /// Null when there is no memory.
  static void* Create() {
    try {
      return static_cast<MPxCommand*>(new MayaCommand);
    } catch (const std::bad_alloc&) {
      return nullptr;
    }
  }

  /// Without flags when there is no memory for them.
  static MSyntax NewSyntax() {
    try {
      return ToMSyntax(Command::NewSyntax());
    } catch (const std::bad_alloc&) {
      return {};
    }
  }

  MStatus doIt(const MArgList& arguments) override {
    return RunCommand(command_, host_, arguments);
  }

 private:
  MayaHost host_;
  Command command_{host_};
};

}  // namespace lipvane::maya
