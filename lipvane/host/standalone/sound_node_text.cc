#include "lipvane/host/standalone/sound_node_text.h"

#include <algorithm>
#include <string_view>

#include "lipvane/host/standalone/key_edits.h"
#include "lipvane/host/standalone/node_statements.h"
#include "lipvane/text/numbers.h"

namespace lipvane::standalone {
namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}
bool IsOfNames(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || IsDigit(c) || c == '_';
}

/// The file's name without folder and ending, as a node may be called.
std::string NodeName(std::string_view fileName) {
  const std::size_t folder = fileName.find_last_of("/\\");
  if (folder != std::string_view::npos) fileName.remove_prefix(folder + 1);
  std::string name(fileName.substr(0, fileName.find_last_of('.')));
  std::replace_if(
      name.begin(), name.end(), [](char c) { return !IsOfNames(c); }, '_');
  if (name.empty() || IsDigit(name[0])) name.insert(0, "sound_");
  return name;
}

}  // namespace

SoundNode AddSoundNode(SceneData& data, const Sound& sound, std::string& added) {
  for (const TextAttribute& file : FindTexts(data, "audio", "f", "filename")) {
    if (file.text == sound.fileName) return {file.node, false};
  }
  const ItemId item = data.AddItem(NodeName(sound.fileName), data.InternType("audio"), kNoItem);
  data.items[item].isInFile = false;
  const std::string& name = data.items[item].name;
  const Style style(data);
  const auto add = [&](const std::string& statement) { (added += statement) += style.lineEnd; };
  add("createNode audio -n " + style.Quote(name) + ";");
  add("\tsetAttr \".ef\" " + text::ExactReal(sound.start + sound.frames) + ";");
  add("\tsetAttr \".se\" " + text::ExactReal(sound.frames) + ";");
  add("\tsetAttr \".f\" -type \"string\" " + style.Quote(sound.fileName) + ";");
  add("\tsetAttr \".o\" " + text::ExactReal(sound.start) + ";");
  return {name, true};
}

}  // namespace lipvane::standalone
