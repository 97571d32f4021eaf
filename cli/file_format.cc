#include "cli/file_format.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace lipvane::cli {
namespace {

bool StartsWith(std::string_view text, std::string_view start) {
  return text.substr(0, start.size()) == start;
}

/// The first word that stands in no comment.
std::string_view FirstWord(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n\f\v";
  for (;;) {
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    if (!StartsWith(text, "//")) break;
    text.remove_prefix(std::min(text.find('\n'), text.size()));
  }
  return text.substr(0, std::min(text.find_first_of(kBlanks), text.size()));
}

bool BeginsSceneStatement(std::string_view word) {
  static constexpr std::string_view kWords[] = {
      "requires", "createNode",  "file",      "fileInfo", "currentUnit", "setAttr",
      "addAttr",  "connectAttr", "workspace", "select",   "parent",      "rename"};
  if (!word.empty() && word.back() == ';') word.remove_suffix(1);
  return std::find(std::begin(kWords), std::end(kWords), word) != std::end(kWords);
}

}  // namespace

std::string Ending(const std::string& fileName) {
  const std::size_t dot = fileName.find_last_of("./\\");
  if (dot == std::string::npos || fileName[dot] != '.') return {};
  std::string ending = fileName.substr(dot);
  std::transform(ending.begin(), ending.end(), ending.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  return ending;
}

FileFormat GuessFormat(std::string_view text, const std::string& fileName) {
  if (StartsWith(text, "\xEF\xBB\xBF")) text.remove_prefix(3);
  // A binary scene is the scene reader's to refuse: it knows the reason.
  if (StartsWith(text, "FOR4") || StartsWith(text, "FOR8") || StartsWith(text, "//Maya")) {
    return FileFormat::kScene;
  }
  const std::string_view word = FirstWord(text);
  if (word == "LTF") return FileFormat::kLtf;
  if (BeginsSceneStatement(word)) return FileFormat::kScene;
  if (!word.empty() && word[0] >= '0' && word[0] <= '9') return FileFormat::kLbp;

  const std::string ending = Ending(fileName);
  if (ending == ".ma") return FileFormat::kScene;
  if (ending == ".lbp") return FileFormat::kLbp;
  if (ending == ".ltf") return FileFormat::kLtf;
  return FileFormat::kUnknown;
}

}  // namespace lipvane::cli
