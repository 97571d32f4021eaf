#include "lipvane/check/lbp_check.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <unordered_map>

#include "lipvane/check/bone_line_check.h"
#include "lipvane/check/lbp_sections.h"
#include "lipvane/check/words.h"
#include "lipvane/engine/bone_pose.h"
#include "lipvane/formats/data_lines.h"
#include "lipvane/formats/lbp.h"
#include "lipvane/formats/limits.h"
#include "lipvane/formats/phonemes.h"
#include "lipvane/text/numbers.h"

namespace lipvane::check {
namespace {

constexpr std::size_t kAssignmentLines = 3;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
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
    if (CountOf(sections_.version) == LBP_FORMAT_VERSION) {
      CheckCountText(sections_.version, "the version");
      CheckSpeechTargets();
      CheckPhonemes();
      CheckHierarchy();
      CheckAssignments();
      CheckPoses();
    }
    CheckReadable();
  }

 private:
  static long long CountOf(const DataLine& line);
  void CheckCountText(const DataLine& line, const char* what);
  /// A finding after which the reader takes lines for what they are not, or runs out of them.
  void AddStructural(std::size_t line, const Rule& rule, const std::string& text);

  void CheckSpeechTargets();
  void FindTargetCount(long long stated, long long named);
  void CheckPhonemes();
  void CheckPhonemeCount();
  void CheckPhoneme(const DataLine& line);
  void CheckHierarchy();
  void CheckBoneCount();
  void CheckAssignments();
  void CheckPoses();
  long long FindPoseCount(long long stated);
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

/// As the reader takes it, none for less.
long long LbpCheck::CountOf(const DataLine& line) {
  return std::max(0, text::IntegerPrefix(TokenCursor(line.text, " ").Next()));
}

void LbpCheck::CheckCountText(const DataLine& line, const char* what) {
  if (line.number == 0 || IsPlainCount(line.text)) return;
  recorder_.Add(line.number, rule::kCountText,
                std::string(what) + ", " + Quoted(line.text) +
                    ", is no plain whole number and read as " +
                    std::to_string(text::IntegerPrefix(TokenCursor(line.text, " ").Next())));
}

void LbpCheck::AddStructural(std::size_t line, const Rule& rule, const std::string& text) {
  isRefusalExplained_ = true;
  recorder_.Add(line, rule, text);
}

void LbpCheck::CheckSpeechTargets() {
  CheckCountText(sections_.speechTargetCount, "the number of speech targets");
  const DataLine& names = sections_.speechTargets;
  if (names.number == 0) return;
  SplitWords(names.text, words_);
  const auto named = static_cast<long long>(words_.size());
  const long long stated = CountOf(sections_.speechTargetCount);
  if (stated != named) {
    // The reader believes the count, up to a limit.
    isRefusalExplained_ = stated > kMaxSpeechTargets;
    recorder_.Add(sections_.speechTargetCount.number, rule::kSpeechTargetCount,
                  "the number of speech targets is " + std::to_string(stated) + ", but line " +
                      std::to_string(names.number) + " names " + std::to_string(named));
  }
  if (const auto before = WordsBeforeDoubledBlank(names.text); before && named > 0) {
    recorder_.Add(names.number, rule::kDoubledBlank,
                  "the names of the speech targets have a blank too many after " +
                      Counted(static_cast<long long>(*before), "name", "names") +
                      ": the rest of the line is read as one name");
  }
  Seen seen;
  for (const std::string_view name : words_) {
    if (IsBlank(name)) {
      recorder_.Add(names.number, rule::kEmptyName, "the name of a speech target is empty");
    } else if (!seen.emplace(name, names.number).second) {
      recorder_.Add(names.number, rule::kDuplicateSpeechTarget,
                    "speech target " + Quoted(name) + " is named more than once");
    }
  }
  FindTargetCount(stated, named);
}

void LbpCheck::FindTargetCount(long long stated, long long named) {
  targets_ = stated;
  if (stated == named || sections_.phonemes.empty()) return;
  SplitWords(sections_.phonemes.front().text, words_);
  if (static_cast<long long>(words_.size()) == named + 1) targets_ = named;
}

void LbpCheck::CheckPhonemes() {
  CheckPhonemeCount();
  Seen seen;
  for (const DataLine& line : sections_.phonemes) {
    CheckPhoneme(line);
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

void LbpCheck::CheckPhoneme(const DataLine& line) {
  SplitWords(line.text, words_);
  if (words_.empty() || IsBlank(words_[0]) ||
      (line.text[0] == ' ' && static_cast<long long>(words_.size()) == targets_ &&
       text::WholeReal(words_[0]))) {
    recorder_.Add(line.number, rule::kEmptyName, "the name of a phoneme is empty");
    return;
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
  const auto before = WordsBeforeDoubledBlank(line.text);
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
}

void LbpCheck::CheckHierarchy() {
  CheckBoneCount();
  Seen seen;
  for (const DataLine& line : sections_.hierarchy) {
    const std::string_view name = BoneName(line.text);
    if (!HasArrow(line.text)) {
      recorder_.Add(
          line.number, rule::kHierarchyLine,
          Quoted(line.text) + " is no line \"bone -> parent\": it is read as a bone's name");
    } else if (IsBlank(name) || name == line.text) {
      recorder_.Add(line.number, rule::kEmptyName, "the name of a bone is empty");
    }
    const auto [first, isNew] = seen.emplace(name, line.number);
    if (isNew) continue;
    recorder_.Add(line.number, rule::kDuplicateBone,
                  "bone " + Quoted(name) + " is listed on line " + std::to_string(first->second) +
                      " already");
  }
}

void LbpCheck::CheckBoneCount() {
  CheckCountText(sections_.boneCount, "the number of bones");
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
  const long long stated = CountOf(sections_.boneCount);
  bones_ = stated;
  if (stated == Size(lines)) return;
  if (stated == arrows) {  // a line too many that is no bone line is named itself
    isRefusalExplained_ = true;
    return;
  }
  const bool isComplete = !sections_.assignments.empty() || sections_.poseCount.number > 0 ||
                          !sections_.boneLines.empty();
  if (stated > Size(lines) && !isComplete) return;
  if (Size(sections_.boneLines) != stated * CountOf(sections_.poseCount)) bones_ = arrows;
  AddStructural(sections_.boneCount.number, rule::kBoneCount,
                "the number of bones is " + std::to_string(stated) + ", but " +
                    Counted(Size(lines), "line follows", "lines follow") +
                    " in the hierarchy: lines are taken for what they are not");
}

void LbpCheck::CheckAssignments() {
  const std::vector<DataLine>& lines = sections_.assignments;
  const bool isComplete = sections_.poseCount.number > 0 || !sections_.boneLines.empty();
  if (lines.size() == kAssignmentLines || (lines.size() < kAssignmentLines && !isComplete)) return;
  std::size_t line = 0;
  if (lines.size() > kAssignmentLines) {
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
                    (lines.size() > kAssignmentLines ? "the number of poses" : "an assignment"));
}

void LbpCheck::CheckPoses() {
  CheckCountText(sections_.poseCount, "the number of bone poses");
  const std::vector<DataLine>& lines = sections_.boneLines;
  if (sections_.poseCount.number == 0) {
    if (lines.empty()) return;
    AddStructural(lines.front().number, rule::kBoneLineCount,
                  "the number of bone poses is missing: this line is taken for it");
    return;
  }
  const long long poses = FindPoseCount(CountOf(sections_.poseCount));
  const std::size_t line = sections_.poseCount.number;
  if (poses <= targets_) {
    recorder_.Add(line, rule::kSpeechPoses,
                  Counted(poses, "pose is", "poses are") + " too few for the neutral one and " +
                      Counted(targets_, "speech target", "speech targets"));
  } else if (const auto expressions = static_cast<long long>(kExpressionNames.size());
             poses <= targets_ + expressions) {
    recorder_.Add(line, rule::kExpressionPoses,
                  Counted(poses, "pose gives", "poses give") + " only " +
                      std::to_string(poses - targets_ - 1) + " of the " +
                      std::to_string(expressions) + " expressions");
  }
  const std::vector<DataLine>& hierarchy = sections_.hierarchy;
  const bool areNamed = Size(hierarchy) == bones_;
  for (std::size_t i = 0; i < lines.size() && static_cast<long long>(i) < bones_ * poses; ++i) {
    BoneLinePlace place;
    place.pose = i / static_cast<std::size_t>(bones_);
    place.number = i % static_cast<std::size_t>(bones_) + 1;
    if (areNamed) place.bone = BoneName(hierarchy[place.number - 1].text);
    CheckBoneLine(lines[i], place, recorder_);
  }
}

/// Compares with the lines; the answer is what they have.
long long LbpCheck::FindPoseCount(long long stated) {
  const long long lines = Size(sections_.boneLines);
  if (lines == bones_ * stated) return stated;
  AddStructural(sections_.poseCount.number, rule::kBoneLineCount,
                Counted(lines, "bone line follows", "bone lines follow") + ", but " +
                    Counted(stated, "pose", "poses") + " of " + Counted(bones_, "bone", "bones") +
                    " take " + std::to_string(bones_ * stated));
  return bones_ > 0 ? std::max(stated, lines / bones_) : stated;
}

void LbpCheck::CheckReadable() {
  TBonePoseInfo poseInfo;
  PhonemeMapping mapping;
  ReadProblem problem;
  if (isRefusalExplained_ || ReadLbpText(text_, poseInfo, mapping, problem)) return;
  const bool hasMark = text_.substr(0, kByteOrderMark.size()) == kByteOrderMark;
  recorder_.Add(static_cast<std::size_t>(std::max(problem.line, 1)), rule::kUnreadable,
                problem.reason + (hasMark ? " (the file begins with a byte order mark)" : ""));
}

}  // namespace

void CheckLbp(const std::string& fileName, std::string_view text, std::vector<Finding>& findings) {
  const std::size_t before = findings.size();
  Recorder recorder(fileName, findings);
  LbpCheck(text, recorder).Run();
  SortByLine(findings, before);
}

}  // namespace lipvane::check
