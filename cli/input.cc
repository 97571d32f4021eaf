#include "cli/input.h"

#include <cstddef>
#include <utility>

#include "cli/messages.h"
#include "lipvane/speech/timing.h"
#include "lipvane/text/file.h"
#include "lipvane/text/utf8.h"

namespace lipvane::cli {
namespace {

std::string FormatName(FileFormat format) {
  switch (format) {
    case FileFormat::kScene:
      return "Maya scene";
    case FileFormat::kLbp:
      return "LBP file";
    case FileFormat::kLtf:
      return "LTF file";
    case FileFormat::kTiming:
      return "timing file";
    case FileFormat::kUnknown:
      break;
  }
  return "file";
}

std::string WithArticle(const std::string& formatName) {
  return (formatName[0] == 'L' ? "an " : "a ") + formatName;
}

std::string Described(const InputFile& input, FileFormat format) {
  std::string what = WithArticle(FormatName(format));
  const char* form = format == FileFormat::kTiming ? speech::TimingFormat(input.text) : nullptr;
  if (form != nullptr) what += " (" + std::string(form) + ")";
  return what;
}

/// Command lines may begin as a scene does, and rows of weights look like a table of times.
bool CouldBeLines(const InputFile& input, FileFormat content) {
  if (content == FileFormat::kTiming) return true;
  return content == FileFormat::kScene && input.text.compare(0, 12, "//Maya ASCII") != 0;
}

bool IsMisplaced(const InputFile& input, FileFormat expected, FileFormat& content) {
  if (input.format == expected) return false;
  content = GuessFormat(input.text, {});  // a name alone proves nothing
  if (content == FileFormat::kUnknown || content == expected) return false;
  return expected != FileFormat::kUnknown || !CouldBeLines(input, content);
}

std::string Place(const InputArgument& argument, std::size_t position) {
  static constexpr const char* kOrdinals[] = {"first", "second", "third"};
  if (argument.option.empty()) {
    return "the " + FormatName(argument.format) + " comes " + kOrdinals[position];
  }
  return argument.option + " takes " +
         (argument.takes.empty() ? WithArticle(FormatName(argument.format)) : argument.takes);
}

}  // namespace

std::string InputName(const std::string& fileName) {
  return fileName == kStandardInput ? "standard input" : fileName;
}

void PrintProblem(const InputFile& input, ReadProblem problem) {
  problem.reason += text::ByteOrderMarkHint(input.text);
  PrintProblem(input.name, problem);
}

bool ReadInput(const std::string& fileName, InputFile& input, std::string& reason) {
  input.name = InputName(fileName);
  const bool isRead = fileName == kStandardInput ? text::ReadStandardInput(input.text, reason)
                                                 : text::ReadFile(fileName, input.text, reason);
  if (isRead) input.format = GuessFormat(input.text, fileName);
  return isRead;
}

std::vector<std::string> Misplaced(const std::vector<InputArgument>& arguments,
                                   const std::vector<InputFile>& inputs) {
  std::vector<std::string> sentences;
  std::size_t position = 0;
  for (std::size_t i = 0; i < inputs.size(); ++i) {
    FileFormat content = FileFormat::kUnknown;
    if (IsMisplaced(inputs[i], arguments[i].format, content)) {
      sentences.push_back(inputs[i].name + " is " + Described(inputs[i], content) + "; " +
                          Place(arguments[i], position));
    }
    if (arguments[i].option.empty()) ++position;
  }
  return sentences;
}

std::optional<std::vector<InputFile>> ReadInputs(const std::vector<InputArgument>& arguments) {
  std::vector<InputFile> inputs;
  for (const InputArgument& argument : arguments) {
    InputFile input;
    std::string reason;
    if (!ReadInput(argument.fileName, input, reason)) {
      PrintProblem(input.name, {0, reason});
      return std::nullopt;
    }
    inputs.push_back(std::move(input));
  }
  const std::vector<std::string> misplaced = Misplaced(arguments, inputs);
  for (const std::string& sentence : misplaced)
    PrintError(sentence);
  if (!misplaced.empty()) return std::nullopt;
  return inputs;
}

}  // namespace lipvane::cli
