#include "tests/maya_standin/standin.h"

#include <maya/MArgList.h>
#include <maya/MPxCommand.h>

#include <memory>
#include <stdexcept>

namespace lipvane::test {
namespace {

Standin* current = nullptr;

}  // namespace

Standin::Standin(StandinScene& behind) : scene(behind) {
  if (current != nullptr) throw std::logic_error("there is a stand-in already");
  current = this;
}

Standin::~Standin() {
  current = nullptr;
}

Standin& Standin::Current() {
  if (current == nullptr) throw std::logic_error("there is no stand-in");
  return *current;
}

bool Standin::Run(const std::string& command, const std::vector<std::string>& words) {
  const auto entry = commands.find(command);
  if (entry == commands.end()) throw std::out_of_range("no command " + command);
  MArgList arguments;
  for (const std::string& word : words) {
    arguments.addArg(word.c_str());
  }
  const std::unique_ptr<MPxCommand> made(static_cast<MPxCommand*>(entry->second.creator()));
  return made != nullptr && made->doIt(arguments).statusCode() == MStatus::kSuccess;
}

}  // namespace lipvane::test
