#include "lipvane/check/lbp_sections.h"

#include <algorithm>
#include <cmath>

#include "lipvane/check/words.h"
#include "lipvane/formats/data_lines.h"
#include "lipvane/text/numbers.h"

namespace lipvane::check {
namespace {

constexpr std::string_view kArrow = " -> ";

bool IsAssignment(std::string_view line) {
  return line.find('=') != std::string_view::npos && !HasArrow(line);
}

bool IsNumber(std::string_view word) {
  const auto value = text::WholeReal(word);
  return value && std::isfinite(*value);
}

class Splitter {
 public:
  explicit Splitter(std::string_view text) : lines_(text) { Advance(); }

  LbpSections Run() {
    LbpSections sections;
    sections.version = Take();
    sections.speechTargetCount = Take();
    sections.speechTargets = Take();
    TakeWhile(sections.phonemes, [this] {
      return !IsCount() && !HasArrow(current_.text) && !IsAssignment(current_.text);
    });
    sections.boneCount = TakeCount(sections.phonemes);
    TakeWhile(sections.hierarchy,
              [this] { return !IsCount() && !IsNumberRow() && !IsAssignment(current_.text); });
    TakeWhile(sections.assignments, [this] { return !IsCount() && !IsNumberRow(); });
    sections.poseCount = TakeCount(sections.assignments);
    TakeWhile(sections.boneLines, [] { return true; });
    return sections;
  }

 private:
  void Advance() {
    current_ = {};
    std::string_view line;
    if (lines_.Next(line)) current_ = {lines_.LineNumber(), line};
  }

  bool Done() const { return current_.number == 0; }

  DataLine Take() {
    const DataLine taken = current_;
    if (!Done()) Advance();
    return taken;
  }

  template <typename Belongs>
  void TakeWhile(std::vector<DataLine>& section, const Belongs& belongs) {
    while (!Done() && belongs())
      section.push_back(Take());
  }

  /// The count that follows a section. When another section follows at once, a single word that
  /// ended up as the last line before it was meant for the count ("two").
  DataLine TakeCount(std::vector<DataLine>& section) {
    if (Done() || IsCount()) return Take();
    if (section.empty() || IsAssignment(section.back().text)) return {};
    SplitWords(section.back().text, words_);
    if (words_.size() != 1) return {};
    const DataLine count = section.back();
    section.pop_back();
    return count;
  }

  /// One number, perhaps with words after it. Not only whole numbers: "2.5" was meant to be one.
  bool IsCount() { return !HasArrow(current_.text) && LeadingNumbers() == 1 && !HasLaterNumber(); }
  bool IsNumberRow() { return LeadingNumbers() > 1; }

  std::size_t LeadingNumbers() {
    SplitWords(current_.text, words_);
    return static_cast<std::size_t>(std::find_if_not(words_.begin(), words_.end(), IsNumber) -
                                    words_.begin());
  }
  bool HasLaterNumber() const { return std::any_of(words_.begin() + 1, words_.end(), IsNumber); }

  DataLineReader lines_;
  DataLine current_;
  std::vector<std::string_view> words_;
};

}  // namespace

LbpSections SplitLbpSections(std::string_view text) {
  return Splitter(text).Run();
}

bool HasArrow(std::string_view line) {
  return line.find(kArrow) != std::string_view::npos;
}

std::string_view BoneName(std::string_view hierarchyLine) {
  return TokenCursor(hierarchyLine, kArrow).Next();
}

bool IsBlank(std::string_view text) {
  return text.find_first_not_of(" \t") == std::string_view::npos;
}

}  // namespace lipvane::check
