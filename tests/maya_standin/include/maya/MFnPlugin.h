// The stand-in's own declaration; see ../../README.md.
#pragma once

#include <maya/MApiVersion.h>
#include <maya/MFnBase.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>
#include <maya/MTypes.h>

namespace lipvane_standin {

typedef void* (*MCreatorFunction)();
typedef MSyntax (*MCreateSyntaxFunction)();

class MFnPlugin : public MFnBase {
 public:
  MFnPlugin(MObject& object, const char* vendor = "Unknown", const char* version = "Unknown",
            const char* requiredApiVersion = "Any", MStatus* status = nullptr);
  ~MFnPlugin() override;
  MStatus registerCommand(const MString& commandName, MCreatorFunction creatorFunction,
                          MCreateSyntaxFunction createSyntaxFunction = nullptr);
  MStatus deregisterCommand(const MString& commandName);
};

}  // namespace lipvane_standin

PLUGIN_EXPORT MStatus initializePlugin(MObject object);
PLUGIN_EXPORT MStatus uninitializePlugin(MObject object);
