#include "lipvane/plugin/registration.h"

#include "lipvane/plugin/export_poses_command.h"
#include "lipvane/plugin/facial_anim_command.h"

namespace lipvane::plugin {

host::Status InitializePlugin(host::PluginLoader& loader) {
  host::Status result;
  const auto registry = loader.OpenRegistry("Tamsk Entertainment", "4.0", "Any");
  result = registry->RegisterCommand("demBonesExportPoses", &ExportPosesCommand::Create,
                                     &ExportPosesCommand::NewSyntax);
  result = registry->RegisterCommand("facialAnim", &FacialAnimCommand::Create,
                                     &FacialAnimCommand::NewSyntax);
  return result;
}

host::Status UninitializePlugin(host::PluginLoader& loader) {
  host::Status result;
  const auto registry = loader.OpenRegistry("Unknown", "Unknown", "Any");
  result = registry->DeregisterCommand("demBonesExportPoses");
  // Deliberate: these two were never registered, and their failures are passed over.
  result = registry->DeregisterCommand("demBonesImportPoses");
  result = registry->DeregisterCommand("demBonesGenerateAnimation");
  result = registry->DeregisterCommand("facialAnim");
  return result;
}

}  // namespace lipvane::plugin
