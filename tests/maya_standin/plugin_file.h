#pragma once

#include <maya/MObject.h>
#include <maya/MStatus.h>

#include <string>

namespace lipvane::test {

/// A plug-in file, opened as the host opens one: every symbol that it needs must be there.
class PluginFile {
 public:
  /// Throws std::runtime_error when the file cannot be opened or lacks one of its symbols.
  explicit PluginFile(const std::string& fileName);
  PluginFile(const PluginFile&) = delete;
  PluginFile& operator=(const PluginFile&) = delete;
  /// Closes the file; the plug-in must be uninitialised.
  ~PluginFile();

  std::string ApiVersion() const { return apiVersion_; }
  MStatus Initialize() const { return initialize_(object_); }
  MStatus Uninitialize() const { return uninitialize_(object_); }

 private:
  using EntryPoint = MStatus (*)(MObject);

  void* Symbol(const char* name) const;

  void* library_;
  EntryPoint initialize_;
  EntryPoint uninitialize_;
  const char* apiVersion_;
  MObject object_;
};

/// Whether the file is part of the process.
bool IsOpen(const std::string& fileName);

}  // namespace lipvane::test
