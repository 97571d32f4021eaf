#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "fuzz/expect.h"
#include "lipvane/host/standalone/interpreter.h"
#include "lipvane/host/standalone/mel.h"

namespace {

using namespace lipvane::standalone;

constexpr const char* kScene =
    "//Maya ASCII 2022 scene\nrequires maya \"2022\";\ncreateNode joint -n \"head\";\n"
    "createNode joint -n \"jaw\" -p \"head\";\n";

/// The host's own commands do something; no other is known, so that nothing touches a file.
void Run(const std::vector<MelCommand>& commands) {
  Scene scene = Scene::Parse(kScene, "face.ma");
  Interpreter interpreter(scene, [](const Message& message) { Expect(!message.text.empty()); });
  for (const MelCommand& command : commands) {
    Expect(!command.words.empty() && !command.place.empty());
    const CommandOutcome outcome = interpreter.Run(command.words);
    Expect(!outcome.Failed() || !outcome.messages.empty());
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  MelSource source;
  source.text.assign(data, data + size);
  source.name = "lines.mel";
  source.hasLineNumbers = true;
  std::vector<MelCommand> commands;
  try {
    commands = SplitMel(source, [](const std::string& word) {
      return word == "select" || word == "currentTime" || word == "facialAnim";
    });
  } catch (const MelError& error) {
    Expect(std::string(error.what()).rfind("lines.mel:", 0) == 0);
    return 0;
  }
  if (commands.size() < 200) Run(commands);
  return 0;
}
