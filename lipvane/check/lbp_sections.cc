#include "lipvane/check/lbp_sections.h"

#include <algorithm>
#include <utility>

#include "lipvane/check/words.h"
#include "lipvane/formats/data_lines.h"

namespace lipvane::check {
namespace {

constexpr std::string_view kArrow = " -> ";

bool IsAssignment(std::string_view line) {
  return line.find('=') != std::string_view::npos && !HasArrow(line);
}

// Sections are told by their shape alone, so a tab is as good as a blank.
constexpr std::string_view kBlanks = " \t";

std::size_t LeadingNumbers(const std::vector<std::string_view>& words) {
  return static_cast<std::size_t>(std::find_if_not(words.begin(), words.end(), IsNumber) -
                                  words.begin());
}

class Splitter {
 public:
  explicit Splitter(std::string_view text) : lines_(text) {
    Advance();
    Advance();
  }

  LbpSections Run() {
    LbpSections sections;
    sections.version = Take();
    sections.speechTargetCount = Take();
    sections.speechTargets = Take();
    TakeWhile(sections.phonemes, [this] {
      if (IsCount()) return IsPhonemeRow(next_.text);  // of one target, without a name
      return !HasArrow(current_.text) &&
             (!IsAssignment(current_.text) || IsPhonemeRow(current_.text));
    });
    sections.boneCount = TakeCount(sections.phonemes);
    TakeWhile(sections.hierarchy, [this] {
      return HasArrow(current_.text) || HasArrow(next_.text) ||
             (!IsCount() && !IsNumberRow(current_.text) && !IsAssignment(current_.text));
    });
    TakeWhile(sections.assignments, [this] { return !IsCount() && !IsNumberRow(current_.text); });
    sections.poseCount = TakeCount(sections.assignments);
    TakeWhile(sections.boneLines, [] { return true; });
    // The readers do not come to those at the end.
    while (!blankLines_.empty() && blankLines_.back().number > last_)
      blankLines_.pop_back();
    sections.blankLines = std::move(blankLines_);
    return sections;
  }

 private:
  void Advance() {
    current_ = next_;
    next_ = {};
    for (std::string_view line; lines_.Next(line);) {
      if (!IsBlank(line)) {
        last_ = lines_.LineNumber();
        next_ = {last_, line};
        return;
      }
      blankLines_.push_back({lines_.LineNumber(), line});
    }
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
  bool IsCount() {
    if (HasArrow(current_.text)) return false;
    SplitWords(current_.text, words_, kBlanks);
    return LeadingNumbers(words_) == 1 && std::none_of(words_.begin() + 1, words_.end(), IsNumber);
  }

  DataLineReader lines_;
  DataLine current_;
  DataLine next_;
  std::size_t last_ = 0;  // line that holds data
  std::vector<DataLine> blankLines_;
  std::vector<std::string_view> words_;
};

}  // namespace

bool IsPhonemeRow(std::string_view line) {
  std::vector<std::string_view> words;
  SplitWords(line, words, kBlanks);
  return words.size() > 1 && !IsNumber(words[0]) &&
         std::all_of(words.begin() + 1, words.end(), IsNumber);
}

bool IsNumberRow(std::string_view line) {
  std::vector<std::string_view> words;
  SplitWords(line, words, kBlanks);
  return LeadingNumbers(words) > 1;
}

LbpSections SplitLbpSections(std::string_view text) {
  return Splitter(text).Run();
}

bool HasArrow(std::string_view line) {
  return line.find(kArrow) != std::string_view::npos;
}

std::string_view BoneName(std::string_view hierarchyLine) {
  return TokenCursor(hierarchyLine, kArrow).Next();
}

std::string_view ParentName(std::string_view hierarchyLine) {
  TokenCursor cursor(hierarchyLine, kArrow);
  cursor.Next();
  return cursor.Next();
}

}  // namespace lipvane::check
