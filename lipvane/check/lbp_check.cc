#include "lipvane/check/lbp_check.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <unordered_map>
#include <utility>

#include "lipvane/check/count_lines.h"
#include "lipvane/check/lbp_sections.h"
#include "lipvane/check/pose_check.h"
#include "lipvane/check/unmoved_poses.h"
#include "lipvane/check/unreadable.h"
#include "lipvane/check/words.h"
#include "lipvane/engine/bone_pose.h"
#include "lipvane/formats/data_lines.h"
#include "lipvane/formats/layout.h"
#include "lipvane/formats/lbp.h"
#include "lipvane/formats/limits.h"
#include "lipvane/formats/phonemes.h"

namespace lipvane::check {
namespace {

constexpr const char* kTargetCount = "the number of speech targets";
constexpr const char* kBoneCount = "the number of bones";
constexpr double kLargestWeight = std::numeric_limits<float>::max();

long long Size(const std::vector<DataLine>& lines) {
  return static_cast<long long>(lines.size());
}

/// Names that were met, with the lines they stand on.
using Seen = std::unordered_map<std::string_view, std::size_t>;

class LbpCheck {
 public:
  LbpCheck(std::string_view text, Recorder& recorder)
      : text_(text), recorder_(recorder), sections_(SplitLbpSections(text)) {}

  void Run() {
    if (CountOn(sections_.version.text) == LBP_FORMAT_VERSION) {
      CheckBlankLines();
      CheckCount(sections_.version, "the version");
      CheckSpeechTargets();
      CheckPhonemes();
      CheckHierarchy();
      CheckAssignments();
      if (CheckPoses(sections_, bones_, targets_, recorder_)) isRefusalExplained_ = true;
    }
    CheckReadable();
  }

 private:
  void CheckBlankLines();
  /// False when it is missing.
  bool CheckCount(const DataLine& line, const char* what);
  /// A finding after which the reader takes lines for what they are not, or runs out of them.
  void AddStructural(std::size_t line, const Rule& rule, const std::string& text);

  void CheckSpeechTargets();
  bool FindMissingNames(bool isCounted);
  void CheckTargetCount(long long named);
  void CheckTargetNames();
  void CheckPhonemes();
  void CheckPhonemeCount();
  /// False when the row has no name that could be looked at.
  bool CheckPhoneme(const DataLine& line);
  void CheckHierarchy();
  void CheckBoneLine(const DataLine& line, std::string_view name);
  void CheckBoneCount();
  void TakeAssignments(long long bones);
  void CheckAssignments();
  void CheckReadable();

  std::string_view text_;
  Recorder& recorder_;
  LbpSections sections_;
  /// As the lines have it, when the count disagrees: one slip must not make findings everywhere.
  long long targets_ = 0;
  long long bones_ = 0;
  std::vector<std::string_view> words_;
  bool isRefusalExplained_ = false;
};

void LbpCheck::CheckBlankLines() {
  for (const DataLine& line : sections_.blankLines) {
    AddStructural(line.number, rule::kBlankLine, kBlankLineText);
  }
}

bool LbpCheck::CheckCount(const DataLine& line, const char* what) {
  const bool isThere = CheckCountLine(line, what, "", recorder_);
  if (!isThere) isRefusalExplained_ = true;
  return isThere;
}

void LbpCheck::AddStructural(std::size_t line, const Rule& rule, const std::string& text) {
  isRefusalExplained_ = true;
  recorder_.Add(line, rule, text);
}

void LbpCheck::CheckSpeechTargets() {
  const DataLine& count = sections_.speechTargetCount;
  const DataLine& names = sections_.speechTargets;
  if (count.number == 0) return;
  const bool isCounted = HasCount(count.text);
  SplitWords(names.text, words_);
  const auto named = static_cast<long long>(words_.size());
  targets_ = isCounted ? CountOn(count.text) : named;
  const bool disagrees = names.number > 0 && !HasTab(names.text) && targets_ != named;
  if (!disagrees || !IsNegativeCount(count.text)) CheckCount(count, kTargetCount);
  if (names.number == 0 || FindMissingNames(isCounted)) return;
  if (HasTab(names.text)) {
    recorder_.Add(names.number, rule::kTab,
                  "the names of the speech targets hold a tab, which separates nothing");
    return;
  }
  if (disagrees) CheckTargetCount(named);
  CheckTargetNames();
}

/// Without the line of names a phoneme's row is taken for it.
bool LbpCheck::FindMissingNames(bool isCounted) {
  const DataLine names = sections_.speechTargets;
  const auto fields = static_cast<long long>(words_.size());
  if ((isCounted && targets_ == fields) || HasTab(names.text) || !IsPhonemeRow(names.text)) {
    return false;
  }
  if (isCounted) {
    AddStructural(sections_.speechTargetCount.number, rule::kSpeechTargetCount,
                  "the names of " + Counted(targets_, "speech target", "speech targets") +
                      " are missing: line " + std::to_string(names.number) +
                      ", a phoneme's row, is taken for them");
  } else {
    targets_ = fields - 1;
  }
  sections_.phonemes.insert(sections_.phonemes.begin(), names);
  return true;
}

void LbpCheck::CheckTargetCount(long long named) {
  const DataLine& count = sections_.speechTargetCount;
  // The reader believes the count, up to a limit.
  isRefusalExplained_ = isRefusalExplained_ || targets_ > kMaxSpeechTargets;
  recorder_.Add(count.number, rule::kSpeechTargetCount,
                std::string(kTargetCount) + " is " + ShownCount(count.text) + ", but line " +
                    std::to_string(sections_.speechTargets.number) + " names " +
                    std::to_string(named));
  if (sections_.phonemes.empty()) return;
  SplitWords(sections_.phonemes.front().text, words_);
  if (static_cast<long long>(words_.size()) == named + 1) targets_ = named;
}

void LbpCheck::CheckTargetNames() {
  const DataLine& names = sections_.speechTargets;
  if (const auto before = WordsBeforeDoubledBlank(names.text)) {
    recorder_.Add(names.number, rule::kDoubledBlank,
                  "the names of the speech targets have a blank too many after " +
                      Counted(static_cast<long long>(*before), "name", "names") +
                      ": the rest of the line is read as one name");
  }
  SplitWords(names.text, words_);
  Seen seen;
  for (const std::string_view name : words_) {
    if (seen.emplace(name, names.number).second) continue;
    recorder_.Add(names.number, rule::kDuplicateSpeechTarget,
                  "speech target " + Quoted(name) + " is named more than once");
  }
}

void LbpCheck::CheckPhonemes() {
  CheckPhonemeCount();
  Seen seen;
  for (const DataLine& line : sections_.phonemes) {
    if (!CheckPhoneme(line)) continue;
    const std::string_view name = TokenCursor(line.text, " ").Next();
    const auto [first, isNew] = seen.emplace(name, line.number);
    if (isNew) continue;
    recorder_.Add(line.number, rule::kDuplicatePhoneme,
                  "phoneme " + Quoted(name) + " has a row on line " +
                      std::to_string(first->second) + " already");
  }
}

void LbpCheck::CheckPhonemeCount() {
  const long long rows = Size(sections_.phonemes);
  // Of a file that ends among its rows the reader says so.
  const bool isComplete = sections_.boneCount.number > 0 || !sections_.hierarchy.empty();
  if (rows == kPhonemeCount || (rows < kPhonemeCount && !isComplete)) return;
  std::size_t line = 0;
  if (rows > kPhonemeCount) {
    line = sections_.phonemes[kPhonemeCount].number;
  } else if (sections_.boneCount.number > 0) {
    line = sections_.boneCount.number;
  } else {
    line = sections_.hierarchy.front().number;
  }
  AddStructural(line, rule::kPhonemeRows,
                "there " + std::string(rows == 1 ? "is " : "are ") +
                    Counted(rows, "phoneme row", "phoneme rows") + ", not " +
                    std::to_string(kPhonemeCount) + ": this line is taken for " +
                    (rows > kPhonemeCount ? "the number of bones" : "a phoneme"));
}

bool LbpCheck::CheckPhoneme(const DataLine& line) {
  std::string_view row = WithoutTrailingSpace(line.text);
  SplitWords(row, words_);
  if (words_.size() < 2) row = line.text;  // a tab after a name alone is part of it
  if (HasTab(row)) {
    recorder_.Add(line.number, rule::kTab,
                  "the phoneme row " + Quoted(row) + " holds a tab, which separates nothing");
    return false;
  }
  if (static_cast<long long>(words_.size()) == targets_ && IsNumber(words_[0])) {
    recorder_.Add(line.number, rule::kEmptyName, "the name of a phoneme is empty");
    return false;
  }
  const std::string phoneme = "phoneme " + Quoted(words_[0]);
  const auto weights = static_cast<long long>(words_.size()) - 1;
  if (weights != targets_) {
    recorder_.Add(line.number, rule::kPhonemeWeights,
                  phoneme + " has " + Counted(weights, "weight", "weights") + " for " +
                      Counted(targets_, "speech target", "speech targets") +
                      (weights < targets_ ? ": those that are missing are read as 0"
                                          : ": those at the end are not read"));
  }
  const auto before = WordsBeforeDoubledBlank(row);
  if (before && static_cast<long long>(*before) <= targets_) {
    recorder_.Add(line.number, rule::kDoubledBlank,
                  phoneme + " has a blank too many before " +
                      (*before == 0 ? "its name" : "its weight " + std::to_string(*before)) +
                      ": the rest of the line is one token, and what follows in it is read as 0");
  }
  for (std::size_t i = 1; i < words_.size() && static_cast<long long>(i) <= targets_; ++i) {
    if (const auto problem = NumberProblem(words_[i], kLargestWeight)) {
      recorder_.Add(line.number, rule::kNotANumber,
                    phoneme + " has a bad weight " + std::to_string(i) + ": " + *problem);
      break;  // a row in another notation is one finding
    }
  }
  return true;
}

void LbpCheck::CheckHierarchy() {
  CheckBoneCount();
  Seen seen;
  for (const DataLine& line : sections_.hierarchy) {
    const std::string_view name = BoneName(line.text);
    CheckBoneLine(line, name);
    const auto [first, isNew] = seen.emplace(name, line.number);
    if (isNew) continue;
    recorder_.Add(line.number, rule::kDuplicateBone,
                  "bone " + Quoted(name) + " is listed on line " + std::to_string(first->second) +
                      " already");
  }
}

void LbpCheck::CheckBoneLine(const DataLine& line, std::string_view name) {
  if (!HasArrow(line.text)) {
    recorder_.Add(
        line.number, rule::kHierarchyLine,
        Quoted(line.text) + " is no line \"bone -> parent\": it is read as a bone's name");
    return;
  }
  if (IsBlank(name) || name == line.text) {
    recorder_.Add(line.number, rule::kEmptyName, "the name of a bone is empty");
    return;
  }
  // Blanks at the end of a line do no harm: nothing is found by a parent's name.
  std::string_view parent = ParentName(line.text);
  while (!parent.empty() && parent.back() == ' ')
    parent.remove_suffix(1);
  for (const auto& [what, text] : {std::pair("bone", name), std::pair("parent", parent)}) {
    const char* where = nullptr;
    if (IsBlank(text.substr(0, 1))) where = "begins";
    if (IsBlank(text.substr(text.empty() ? 0 : text.size() - 1))) where = "ends";
    if (text.empty() || where == nullptr) continue;
    recorder_.Add(line.number, rule::kHierarchyLine,
                  "the name of a " + std::string(what) + ", " + Quoted(text) + ", " + where +
                      " with white space, which is part of the name");
    return;
  }
}

void LbpCheck::CheckBoneCount() {
  const std::vector<DataLine>& lines = sections_.hierarchy;
  const auto arrows = static_cast<long long>(std::count_if(
      lines.begin(), lines.end(), [](const DataLine& line) { return HasArrow(line.text); }));
  if (sections_.boneCount.number == 0) {
    bones_ = arrows;
    if (lines.empty()) return;
    AddStructural(lines.front().number, rule::kBoneCount,
                  "the number of bones is missing: this line is taken for it");
    return;
  }
  if (!HasCount(sections_.boneCount.text)) {
    CheckCount(sections_.boneCount, kBoneCount);
    bones_ = arrows;
    return;
  }
  const long long stated = CountOn(sections_.boneCount.text);
  bones_ = stated;
  TakeAssignments(stated);
  if (stated == Size(lines) || !IsNegativeCount(sections_.boneCount.text)) {
    CheckCount(sections_.boneCount, kBoneCount);
  }
  if (stated == Size(lines)) return;
  if (stated == arrows) {  // a line too many that is no bone line is named itself
    isRefusalExplained_ = true;
    return;
  }
  const bool isComplete = !sections_.assignments.empty() || sections_.poseCount.number > 0 ||
                          !sections_.boneLines.empty();
  if (stated > Size(lines) && !isComplete) return;
  if (Size(sections_.boneLines) != stated * CountOn(sections_.poseCount.text)) bones_ = arrows;
  AddStructural(sections_.boneCount.number, rule::kBoneCount,
                std::string(kBoneCount) + " is " + ShownCount(sections_.boneCount.text) + ", but " +
                    Counted(Size(lines), "line follows", "lines follow") +
                    " in the hierarchy: lines are taken for what they are not");
}

/// Assignments may hold anything: without a "=" they look like a part of the hierarchy.
void LbpCheck::TakeAssignments(long long bones) {
  std::vector<DataLine>& lines = sections_.hierarchy;
  if (!sections_.assignments.empty() || bones != Size(lines) - kAssignmentLines) return;
  const auto first = lines.end() - kAssignmentLines;
  if (std::any_of(first, lines.end(), [](const DataLine& line) { return HasArrow(line.text); })) {
    return;
  }
  sections_.assignments.assign(first, lines.end());
  lines.erase(first, lines.end());
}

void LbpCheck::CheckAssignments() {
  const std::vector<DataLine>& lines = sections_.assignments;
  const bool isComplete = sections_.poseCount.number > 0 || !sections_.boneLines.empty();
  if (Size(lines) == kAssignmentLines || (Size(lines) < kAssignmentLines && !isComplete)) return;
  std::size_t line = 0;
  if (Size(lines) > kAssignmentLines) {
    line = lines[kAssignmentLines].number;
  } else if (sections_.poseCount.number > 0) {
    line = sections_.poseCount.number;
  } else {
    line = sections_.boneLines.front().number;
  }
  AddStructural(line, rule::kAssignments,
                "there " + std::string(lines.size() == 1 ? "is " : "are ") +
                    Counted(Size(lines), "assignment line", "assignment lines") + ", not " +
                    std::to_string(kAssignmentLines) + ": this line is taken for " +
                    (Size(lines) > kAssignmentLines ? "the number of poses" : "an assignment"));
}

void LbpCheck::CheckReadable() {
  TBonePoseInfo poseInfo;
  PhonemeMapping mapping;
  ReadProblem problem;
  if (isRefusalExplained_) return;
  if (!ReadLbpText(text_, poseInfo, mapping, problem)) {
    AddUnreadable(text_, problem, recorder_);
    return;
  }
  CheckUnmovedPoses(sections_, poseInfo, mapping, recorder_);
}

}  // namespace

void CheckLbp(const std::string& fileName, std::string_view text, std::vector<Finding>& findings) {
  const std::size_t before = findings.size();
  Recorder recorder(fileName, findings);
  LbpCheck(text, recorder).Run();
  SortByLine(findings, before);
}

}  // namespace lipvane::check
