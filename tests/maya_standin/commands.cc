// Plug-ins and their commands.

#define MNoVersionString  // this is the host
#include <maya/MFnPlugin.h>
#include <maya/MPxCommand.h>

#include <string>

#include "tests/maya_standin/content.h"

namespace lipvane_standin {

using lipvane::test::Standin;

MFnPlugin::MFnPlugin(MObject& object, const char* vendor, const char* version,
                     const char* requiredApiVersion, MStatus* status) {
  Standin::Current().registrations.push_back(std::string("open ") + vendor + "/" + version + "/" +
                                             requiredApiVersion);
  object_ = object;
  standin::Answer(status, MStatus::kSuccess);
}
MFnPlugin::~MFnPlugin() = default;
MStatus MFnPlugin::registerCommand(const MString& commandName, MCreatorFunction creatorFunction,
                                   MCreateSyntaxFunction createSyntaxFunction) {
  Standin& host = Standin::Current();
  const std::string name = commandName.asChar();
  host.registrations.push_back("register " + name);
  if (object_.isNull() || host.refused.count(name) != 0) return MStatus::kFailure;
  const bool added =
      host.commands.emplace(name, Standin::CommandClass{creatorFunction, createSyntaxFunction})
          .second;
  return added ? MStatus::kSuccess : MStatus::kFailure;
}
MStatus MFnPlugin::deregisterCommand(const MString& commandName) {
  Standin& host = Standin::Current();
  const std::string name = commandName.asChar();
  host.registrations.push_back("deregister " + name);
  return host.commands.erase(name) != 0 ? MStatus::kSuccess : MStatus::kFailure;
}

MPxCommand::MPxCommand() = default;
MPxCommand::~MPxCommand() = default;
MStatus MPxCommand::doIt(const MArgList& /*args*/) {
  return MStatus::kFailure;
}
MStatus MPxCommand::undoIt() {
  return MStatus::kFailure;
}
MStatus MPxCommand::redoIt() {
  return MStatus::kFailure;
}
bool MPxCommand::isUndoable() const {
  return false;
}
bool MPxCommand::hasSyntax() const {
  return false;
}
void MPxCommand::displayError(const MString& text, bool /*showLineNumber*/) {
  standin::Host().DisplayError(text.asChar());
}
void MPxCommand::displayWarning(const MString& text, bool /*showLineNumber*/) {
  standin::Host().DisplayWarning(text.asChar());
}

}  // namespace lipvane_standin
