// The symbols that the host looks for when it loads the plug-in file. The only file that includes
// MFnPlugin.h, which defines MApiVersion.

#include <maya/MFnPlugin.h>

#include <memory>
#include <string>

#include "lipvane/host/command.h"
#include "lipvane/host/maya/maya_status.h"
#include "lipvane/plugin/export_poses_command.h"
#include "lipvane/plugin/facial_anim_command.h"
#include "lipvane/plugin/maya/maya_command.h"
#include "lipvane/plugin/registration.h"

namespace lipvane::maya {
namespace {

/// A command of ours and what the host is given for it: the host's creators take no arguments, so
/// each command has a class of its own.
struct CommandClass {
  host::CommandCreator command;
  MCreatorFunction creator;
  MCreateSyntaxFunction syntax;
};

template <class Command>
constexpr CommandClass ClassOf() {
  return {&Command::Create, &MayaCommand<Command>::Create, &MayaCommand<Command>::NewSyntax};
}

constexpr CommandClass kCommandClasses[] = {ClassOf<plugin::ExportPosesCommand>(),
                                            ClassOf<plugin::FacialAnimCommand>()};

class Registry : public host::CommandRegistry {
 public:
  Registry(MObject& plugin, const std::string& vendor, const std::string& version,
           const std::string& requiredApiVersion)
      : plugin_(plugin, vendor.c_str(), version.c_str(), requiredApiVersion.c_str()) {}

  host::Status RegisterCommand(const std::string& name, host::CommandCreator creator,
                               host::SyntaxFunction /*syntax*/) override {
    for (const CommandClass& command : kCommandClasses) {
      if (command.command == creator) {
        return ToStatus(plugin_.registerCommand(name.c_str(), command.creator, command.syntax));
      }
    }
    return host::StatusCode::kInvalidParameter;
  }
  host::Status DeregisterCommand(const std::string& name) override {
    return ToStatus(plugin_.deregisterCommand(name.c_str()));
  }

 private:
  MFnPlugin plugin_;
};

class Loader : public host::PluginLoader {
 public:
  explicit Loader(MObject& plugin) : plugin_(plugin) {}

  std::unique_ptr<host::CommandRegistry> OpenRegistry(
      const std::string& vendor, const std::string& version,
      const std::string& requiredApiVersion) override {
    return std::make_unique<Registry>(plugin_, vendor, version, requiredApiVersion);
  }

 private:
  MObject& plugin_;
};

/// The host's loader expects no exceptions.
MStatus Run(MObject& plugin, host::Status (*entry)(host::PluginLoader&)) {
  try {
    Loader loader(plugin);
    return ToMStatus(entry(loader));
  } catch (...) {
    return MStatus::kFailure;
  }
}

}  // namespace
}  // namespace lipvane::maya

PLUGIN_EXPORT MStatus initializePlugin(MObject plugin) {
  return lipvane::maya::Run(plugin, &lipvane::plugin::InitializePlugin);
}

PLUGIN_EXPORT MStatus uninitializePlugin(MObject plugin) {
  return lipvane::maya::Run(plugin, &lipvane::plugin::UninitializePlugin);
}
