#include "lipvane/check/pose_check.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "lipvane/check/bone_line_check.h"
#include "lipvane/check/count_lines.h"
#include "lipvane/check/repeated.h"
#include "lipvane/check/words.h"
#include "lipvane/formats/phonemes.h"

namespace lipvane::check {
namespace {

/// Bone lines that follow each other directly, with no title and no empty line between.
struct Group {
  std::size_t begin;
  std::size_t end;
};

std::vector<Group> GroupsOf(const std::vector<DataLine>& lines) {
  std::vector<Group> groups;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (i == 0 || lines[i].number != lines[i - 1].number + 1) groups.push_back({i, i});
    groups.back().end = i + 1;
  }
  return groups;
}

class PoseCheck {
 public:
  PoseCheck(const LbpSections& sections, long long bones, long long targets, Recorder& recorder)
      : sections_(sections),
        bones_(bones),
        targets_(targets),
        recorder_(recorder),
        lines_(sections.boneLines) {
    if (Size(sections.hierarchy) != bones) return;
    for (const DataLine& line : sections.hierarchy)
      names_.push_back(BoneName(line.text));
  }

  bool Run() {
    if (sections_.poseCount.number == 0) {
      if (lines_.empty()) return false;
      AddStructural(lines_.front().number, rule::kBoneLineCount,
                    "the number of bone poses is missing: this line is taken for it");
      return true;
    }
    const long long stated = FindStated();
    DropUnreadText(stated);
    const std::vector<Group> groups = GroupsOf(lines_);
    const bool areParted = bones_ > 0 && static_cast<long long>(groups.size()) == stated;
    const long long poses = areParted ? stated : FindPoseCount(stated);
    CheckPoseCount(poses);
    if (areParted) {
      CheckGroups(groups);
    } else {
      CheckLines(poses);
    }
    for (const auto& [bone, found] : lengths_) {
      recorder_.Add(
          found.line, rule::kRotationLength,
          found.text + (found.count > 1 ? " (in " + std::to_string(found.count) + " poses)" : ""));
    }
    return isRefusalExplained_;
  }

 private:
  long long FindStated();
  void DropUnreadText(long long poses);
  long long FindPoseCount(long long stated);
  void CheckPoseCount(long long poses);
  void CheckGroups(const std::vector<Group>& groups);
  void CheckLines(long long poses);
  void CheckLine(const DataLine& line, std::size_t pose, std::size_t bone, bool isNamed);

  void AddStructural(std::size_t line, const Rule& rule, const std::string& text) {
    isRefusalExplained_ = true;
    recorder_.Add(line, rule, text);
  }

  /// Of a count that is missing no more is said than that: the lines tell it.
  long long Whole() const { return bones_ > 0 ? Size() / bones_ : 0; }
  long long Size() const { return Size(lines_); }
  static long long Size(const std::vector<DataLine>& lines) {
    return static_cast<long long>(lines.size());
  }

  const LbpSections& sections_;
  long long bones_;
  long long targets_;
  Recorder& recorder_;
  std::vector<DataLine> lines_;
  std::vector<std::string_view> names_;      // of the bones, when as many are named
  std::map<std::size_t, Repeated> lengths_;  // by bone
  bool isRefusalExplained_ = false;
};

long long PoseCheck::FindStated() {
  const DataLine& line = sections_.poseCount;
  const long long stated = CountOn(line.text);
  // A negative count is named where it disagrees with the lines.
  if (IsNegativeCount(line.text) && Size() != bones_ * stated) return stated;
  if (CheckCountLine(line, "the number of bone poses", "", recorder_)) return stated;
  isRefusalExplained_ = true;
  return Whole();
}

/// What follows the last pose and is no row of numbers was not meant for a bone.
void PoseCheck::DropUnreadText(long long poses) {
  const long long read = bones_ * poses;
  if (read >= Size()) return;
  const auto first = lines_.begin() + static_cast<std::ptrdiff_t>(read);
  if (std::any_of(first, lines_.end(),
                  [](const DataLine& line) { return IsNumberRow(line.text); })) {
    return;
  }
  recorder_.Add(first->number, rule::kUnreadLines,
                "the file goes on after its last pose: this is not read");
  lines_.erase(first, lines_.end());
}

/// Compares with the lines; the answer is what they have.
long long PoseCheck::FindPoseCount(long long stated) {
  if (Size() == bones_ * stated || !HasCount(sections_.poseCount.text)) return stated;
  AddStructural(sections_.poseCount.number, rule::kBoneLineCount,
                Counted(Size(), "bone line follows", "bone lines follow") + ", but " +
                    ShownCount(sections_.poseCount.text) +
                    (stated == 1 ? " pose of " : " poses of ") + Counted(bones_, "bone", "bones") +
                    (stated == 1 ? " takes " : " take ") + std::to_string(bones_ * stated));
  return std::max(stated, Whole());
}

void PoseCheck::CheckPoseCount(long long poses) {
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
}

/// As many groups as poses: each is one, whatever the lines are all together.
void PoseCheck::CheckGroups(const std::vector<Group>& groups) {
  for (std::size_t pose = 0; pose < groups.size(); ++pose) {
    const auto [begin, end] = groups[pose];
    const auto size = static_cast<long long>(end - begin);
    if (size != bones_) {
      AddStructural(lines_[begin].number, rule::kBoneLineCount,
                    "pose " + std::to_string(pose) + " has " +
                        Counted(size, "bone line", "bone lines") + ", not " +
                        std::to_string(bones_));
    }
    for (std::size_t i = begin; i < end; ++i)
      CheckLine(lines_[i], pose, i - begin, size == bones_);
  }
}

void PoseCheck::CheckLines(long long poses) {
  for (std::size_t i = 0; i < lines_.size() && static_cast<long long>(i) < bones_ * poses; ++i) {
    const auto bones = static_cast<std::size_t>(bones_);
    CheckLine(lines_[i], i / bones, i % bones, true);
  }
}

void PoseCheck::CheckLine(const DataLine& line, std::size_t pose, std::size_t bone, bool isNamed) {
  BoneLinePlace place;
  place.pose = pose;
  place.number = bone + 1;
  if (isNamed && !names_.empty()) place.bone = names_[bone];
  if (const auto problem = CheckBoneLine(line, place, recorder_)) {
    lengths_[bone].Add(line.number, *problem);
  }
}

}  // namespace

bool CheckPoses(const LbpSections& sections, long long bones, long long targets,
                Recorder& recorder) {
  return PoseCheck(sections, bones, targets, recorder).Run();
}

}  // namespace lipvane::check
