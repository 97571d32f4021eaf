#pragma once

#include <maya/MArgList.h>
#include <maya/MPxCommand.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

#include <exception>
#include <new>
#include <string>

#include "lipvane/engine/exception.h"
#include "lipvane/host/maya/maya_arguments.h"
#include "lipvane/host/maya/maya_host.h"
#include "lipvane/host/maya/maya_status.h"

namespace lipvane::maya {

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

  /// An exception that is not the engine's becomes an error message and a failure.
  MStatus doIt(const MArgList& arguments) override {
    try {
      const host::Status status = command_.DoIt(MayaArguments(arguments));
      host_.WarnOfLostKeys();
      return ToMStatus(status);
    } catch (const TamskException&) {
      throw;  // deliberate: the engine's failure is for whoever runs the command
    } catch (const std::bad_alloc&) {
      Report("out of memory");
      return MStatus::kInsufficientMemory;
    } catch (const std::exception& error) {
      Report("ended by an unexpected error: ", error.what());
    } catch (...) {
      Report("ended by an unknown exception");
    }
    return MStatus::kFailure;
  }

 private:
  static void Report(const char* text, const char* detail = "") noexcept {
    try {
      displayError((std::string(text) + detail).c_str());
    } catch (...) {  // the status has to tell
    }
  }

  MayaHost host_;
  Command command_{host_};
};

}  // namespace lipvane::maya
