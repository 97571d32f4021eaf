#include "lipvane/speech/shapes_file.h"

#include <cmath>
#include <cstddef>
#include <unordered_map>
#include <utility>

#include "lipvane/formats/data_lines.h"
#include "lipvane/formats/file_content.h"
#include "lipvane/speech/encoding.h"
#include "lipvane/speech/words.h"
#include "lipvane/text/numbers.h"
#include "lipvane/text/printable.h"

namespace lipvane::speech {
namespace {

/// The weights of a row, from behind its name.
bool ReadWeights(std::string_view rest, int line, ShapeRow& row, ReadProblem& problem) {
  while (!rest.empty()) {
    const std::string_view word = TakeWord(rest);
    const auto weight = text::FiniteReal(word);
    row.weights.push_back(weight ? static_cast<float>(*weight) : 0.0F);
    if (!weight || !std::isfinite(row.weights.back())) {
      return Refuse(problem, line, text::QuotedLine(word) + " is no weight");
    }
  }
  return true;
}

}  // namespace

bool ReadShapesText(std::string_view text, int speechTargetCount, std::vector<ShapeRow>& rows,
                    ReadProblem& problem) {
  std::string content;
  if (!ToUtf8(text, content, problem)) return false;
  std::vector<ShapeRow> read;
  std::unordered_map<std::string, int> lineByName;
  DataLineReader lines(content);
  std::string_view line;
  while (lines.Next(line)) {
    const int number = static_cast<int>(lines.LineNumber());
    ShapeRow row;
    row.name = TakeWord(line);
    if (row.name.empty()) continue;
    const auto [first, isNew] = lineByName.emplace(row.name, number);
    if (!isNew) {
      return Refuse(problem, number,
                    text::QuotedLine(row.name) + " stands on line " +
                        std::to_string(first->second) + " already");
    }
    if (!ReadWeights(line, number, row, problem)) return false;
    if (row.weights.size() != static_cast<std::size_t>(speechTargetCount)) {
      return Refuse(problem, number,
                    text::QuotedLine(row.name) + " has " + std::to_string(row.weights.size()) +
                        " weights; the face has " + std::to_string(speechTargetCount) +
                        " speech targets");
    }
    read.push_back(std::move(row));
  }
  if (read.empty()) return Refuse(problem, 0, "it holds no mouth shapes");
  rows = std::move(read);
  return true;
}

bool ReadShapes(const std::string& fileName, int speechTargetCount, std::vector<ShapeRow>& rows,
                ReadProblem& problem) {
  return ReadContent(fileName, problem, [&](const std::string& content) {
    return ReadShapesText(content, speechTargetCount, rows, problem);
  });
}

}  // namespace lipvane::speech
