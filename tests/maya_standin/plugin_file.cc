#include "tests/maya_standin/plugin_file.h"

#include <dlfcn.h>

#include <memory>
#include <stdexcept>

#include "tests/maya_standin/content.h"

namespace lipvane::test {
namespace {

std::string LastError() {
  const char* text = dlerror();
  return text == nullptr ? "unknown error" : text;
}

MObject NewPluginObject() {
  lipvane_standin::standin::Content content;
  content.kind = lipvane_standin::standin::Content::Kind::kPlugin;
  return MObject(std::make_shared<const lipvane_standin::standin::Content>(content));
}

}  // namespace

PluginFile::PluginFile(const std::string& fileName)
    : library_(dlopen(fileName.c_str(), RTLD_NOW | RTLD_LOCAL)), object_(NewPluginObject()) {
  if (library_ == nullptr) throw std::runtime_error(LastError());
  // The entry points are C++ functions.
  initialize_ =
      reinterpret_cast<EntryPoint>(Symbol("_Z16initializePluginN15lipvane_standin7MObjectE"));
  uninitialize_ =
      reinterpret_cast<EntryPoint>(Symbol("_Z18uninitializePluginN15lipvane_standin7MObjectE"));
  apiVersion_ = static_cast<const char*>(Symbol("MApiVersion"));
}

PluginFile::~PluginFile() {
  dlclose(library_);
}

void* PluginFile::Symbol(const char* name) const {
  void* symbol = dlsym(library_, name);
  if (symbol == nullptr) {
    const std::string reason = LastError();
    dlclose(library_);
    throw std::runtime_error(reason);
  }
  return symbol;
}

bool IsOpen(const std::string& fileName) {
  void* library = dlopen(fileName.c_str(), RTLD_NOW | RTLD_NOLOAD);
  if (library != nullptr) dlclose(library);
  return library != nullptr;
}

}  // namespace lipvane::test
