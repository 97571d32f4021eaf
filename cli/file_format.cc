#include "cli/file_format.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "lipvane/speech/timing.h"

namespace lipvane::cli {
namespace {

bool StartsWith(std::string_view text, std::string_view start) {
  return text.substr(0, start.size()) == start;
}

constexpr std::string_view kBlanks = " \t\r\n\f\v";

/// Without the white space and the comments at its beginning.
std::string_view FromFirstWord(std::string_view text) {
  for (;;) {
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    if (!StartsWith(text, "//")) return text;
    text.remove_prefix(std::min(text.find('\n'), text.size()));
  }
}

/// A version stands alone on its line, the times of a table do not.
bool StandsAlone(std::string_view word, std::string_view text) {
  std::string_view line = text.substr(0, text.find('\n')).substr(word.size());
  line = line.substr(0, line.find("//"));
  return line.find_first_not_of(kBlanks) == std::string_view::npos;
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
  const std::string_view body = FromFirstWord(text);
  const std::string_view word = body.substr(0, body.find_first_of(kBlanks));
  if (word == "LTF") return FileFormat::kLtf;
  if (BeginsSceneStatement(word)) return FileFormat::kScene;
  const std::string ending = Ending(fileName);
  if (!word.empty() && word[0] >= '0' && word[0] <= '9' &&
      (ending == ".lbp" || StandsAlone(word, body))) {
    return FileFormat::kLbp;
  }
  if (speech::TimingFormat(text) != nullptr) return FileFormat::kTiming;
  if (ending == ".ma") return FileFormat::kScene;
  if (ending == ".lbp") return FileFormat::kLbp;
  if (ending == ".ltf") return FileFormat::kLtf;
  return FileFormat::kUnknown;
}

}  // namespace lipvane::cli
