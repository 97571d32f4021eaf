#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "cli/file_format.h"
#include "lipvane/formats/read_problem.h"

namespace lipvane::cli {

/// The name that stands for standard input.
inline constexpr char kStandardInput[] = "-";

/// A file that was read.
struct InputFile {
  std::string name;  ///< what messages and results call it
  std::string text;
  FileFormat format = FileFormat::kUnknown;
};

/// A file that the command line names, and what is to be in it.
struct InputArgument {
  InputArgument(std::string itsFileName, FileFormat itsFormat, std::string itsOption = {},
                std::string itTakes = {})
      : fileName(std::move(itsFileName)),
        format(itsFormat),
        option(std::move(itsOption)),
        takes(std::move(itTakes)) {}

  std::string fileName;
  FileFormat format;   ///< kUnknown for text of no format that we can tell
  std::string option;  ///< that names the file; empty for an argument of its own
  std::string takes;   ///< what an option takes that kUnknown does not name: "command lines"
};

/// What messages call a file: standard input for "-".
std::string InputName(const std::string& fileName);

/// Prints why a reader refused a file, and that it begins with a byte order mark if it does.
void PrintProblem(const InputFile& input, ReadProblem problem);

/// Reads a file, or standard input for "-". False with a reason when it cannot be read.
bool ReadInput(const std::string& fileName, InputFile& input, std::string& reason);

/// Says where each file belongs whose content is plainly of another format than its place takes:
/// "face.ma is a Maya scene; the LBP file comes second". Nothing for those that could be right, of
/// which the readers know more.
std::vector<std::string> Misplaced(const std::vector<InputArgument>& arguments,
                                   const std::vector<InputFile>& inputs);

/// Reads all files of a command line, in its order. Nothing, after saying why, when one cannot be
/// read or is misplaced.
std::optional<std::vector<InputFile>> ReadInputs(const std::vector<InputArgument>& arguments);

}  // namespace lipvane::cli
