#include "cli/written_formats.h"

#include <filesystem>
#include <string_view>
#include <system_error>

#include "cli/file_format.h"

namespace lipvane::cli {
namespace {

struct WrittenFormat {
  std::string_view writer;
  std::string_view ending;
  std::string_view what;
};

constexpr std::string_view kReport = "--report";
constexpr WrittenFormat kWrittenFormats[] = {
    {"run", ".ma", "Maya ASCII scene"},      {"bake", ".ma", "Maya ASCII scene"},
    {"bake", ".mel", "script of keys"},      {"play", ".json", "frames as JSON"},
    {"play", ".csv", "frames as a table"},   {"speak", ".ltf", "animation file"},
    {"map", ".map", "phoneme mapping file"}, {"plot", ".svg", "picture"},
    {kReport, ".json", "what happened"},
};

}  // namespace

std::string BrokenPromise(const std::string& writer, const std::string& fileName) {
  namespace fs = std::filesystem;
  const std::string ending = Ending(fileName);
  std::error_code error;
  if (ending.size() < 2 || (fs::exists(fileName, error) && !fs::is_regular_file(fileName, error))) {
    return {};
  }
  std::string known;
  // A report goes by many names; it only takes none that means another format.
  bool isPromise = writer != kReport;
  for (const WrittenFormat& format : kWrittenFormats) {
    isPromise = isPromise || format.ending == ending;
    if (format.writer != writer) continue;
    if (format.ending == ending) return {};
    known.append(known.empty() ? "" : ", ").append(format.ending);
    known.append(" (").append(format.what).append(")");
  }
  if (!isPromise) return {};
  return fileName + " ends in " + ending + "; what can be written: " + known;
}

}  // namespace lipvane::cli
