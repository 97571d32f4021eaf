#include "lipvane/plugin/maya/maya_command.h"

#include <maya/MString.h>

#include <exception>
#include <string>

#include "lipvane/engine/exception.h"
#include "lipvane/host/maya/maya_status.h"

namespace lipvane::maya {
namespace {

void Report(const char* text, const char* detail = "") noexcept {
  try {
    MPxCommand::displayError((std::string(text) + detail).c_str());
  } catch (...) {  // the status has to tell
  }
}

}  // namespace

MStatus RunCommand(host::Command& command, MayaHost& host, const MArgList& arguments) {
  try {
    const host::Status status = command.DoIt(MayaArguments(arguments));
    host.WarnOfLostKeys();
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

}  // namespace lipvane::maya
