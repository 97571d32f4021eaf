#include <cstddef>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "lipvane/formats/data_lines.h"
#include "lipvane/formats/expected_lines.h"
#include "lipvane/formats/file_content.h"
#include "lipvane/formats/layout.h"
#include "lipvane/formats/lbp.h"
#include "lipvane/formats/limits.h"

namespace lipvane {
namespace {

template <typename T>
void MakeRoom(std::vector<T>& to, const std::vector<T>& from) {
  to.reserve(to.size() + from.size());
}

template <typename T>
void MoveOver(std::vector<T>& to, std::vector<T>& from) {
  to.insert(to.end(), std::make_move_iterator(from.begin()), std::make_move_iterator(from.end()));
}

/// One reading of one text, into objects of its own: a refusal must leave those of the caller
/// alone.
class Reading {
 public:
  Reading(std::string_view content, ReadProblem& problem) : lines_(content, problem) {}

  bool Run() {
    return ReadVersion() && ReadMapping() && ReadBones() && SkipAssignments() && ReadPoses();
  }

  void AppendTo(TBonePoseInfo& poseInfo, PhonemeMapping& mapping) {
    // What may fail for want of memory comes first.
    MakeRoom(poseInfo.boneNames, poseInfo_.boneNames);
    MakeRoom(poseInfo.poses, poseInfo_.poses);
    MakeRoom(mapping.speechTargets, mapping_.speechTargets);
    MakeRoom(mapping.phonemes, mapping_.phonemes);
    MakeRoom(mapping.weights, mapping_.weights);
    MoveOver(poseInfo.boneNames, poseInfo_.boneNames);
    MoveOver(poseInfo.poses, poseInfo_.poses);
    MoveOver(mapping.speechTargets, mapping_.speechTargets);
    MoveOver(mapping.phonemes, mapping_.phonemes);
    MoveOver(mapping.weights, mapping_.weights);
  }

 private:
  bool ReadVersion();
  bool ReadMapping();
  bool ReadBones();
  bool SkipAssignments();
  bool ReadPoses();

  bool WithinLimit(int count, int limit, const char* what);

  ExpectedLines lines_;
  TBonePoseInfo poseInfo_;
  PhonemeMapping mapping_;
};

bool Reading::ReadVersion() {
  int version = 0;
  if (!lines_.NextCount("the version", version)) return false;
  if (version == LBP_FORMAT_VERSION) return true;
  return lines_.Refuse("the version is " + std::to_string(version) + ", not " +
                       std::to_string(LBP_FORMAT_VERSION));
}

bool Reading::ReadMapping() {
  int targetCount = 0;
  if (!lines_.NextCount("the number of speech targets", targetCount)) return false;
  if (!WithinLimit(targetCount, kMaxSpeechTargets, "speech targets")) return false;

  std::string_view line;
  if (!lines_.Next("the line of speech target names", line)) return false;
  TokenCursor names(line, " ");
  for (int i = 0; i < targetCount; ++i)
    mapping_.AddSpeechTarget(std::string(names.Next()));

  // Deliberate: always as many rows as the default table has, whatever the file says.
  std::vector<float> row;
  for (int p = 0; p < kPhonemeCount; ++p) {
    if (!lines_.Next("a phoneme's row of weights", line)) return false;
    TokenCursor tokens(line, " ");
    const std::string name(tokens.Next());
    row.clear();
    for (int t = 0; t < targetCount; ++t)
      row.push_back(tokens.NextFloat());
    mapping_.AddPhoneme(name, row);
  }
  return true;
}

bool Reading::ReadBones() {
  int boneCount = 0;
  if (!lines_.NextCount("the number of bones", boneCount)) return false;
  for (int i = 0; i < boneCount; ++i) {
    std::string_view line;
    if (!lines_.Next("a bone of the hierarchy", line)) return false;
    poseInfo_.AddBone(std::string(TokenCursor(line, " -> ").Next()));
  }
  return true;
}

bool Reading::SkipAssignments() {
  std::string_view line;
  for (int i = 0; i < kAssignmentLines; ++i) {
    if (!lines_.Next("a bone assignment", line)) return false;
  }
  return true;
}

bool Reading::ReadPoses() {
  int poseCount = 0;
  if (!lines_.NextCount("the number of bone poses", poseCount)) return false;
  if (!WithinLimit(poseCount, kMaxPoses, "bone poses")) return false;

  const auto boneCount = static_cast<int>(poseInfo_.boneNames.size());
  for (int p = 0; p < poseCount; ++p) {
    TBonePose& pose = poseInfo_.poses.emplace_back();
    pose.Reserve(boneCount);
    for (int b = 0; b < boneCount; ++b) {
      std::string_view line;
      if (!lines_.Next("a pose's bone line", line)) return false;
      TokenCursor tokens(line, " ");
      TIndexedBone bone;
      tokens.Skip(static_cast<int>(kFirstOfTranslation));
      const auto [tx, ty, tz] = tokens.NextFloats<3>();
      bone.translation = {tx, ty, tz};
      tokens.Skip(static_cast<int>(kFirstOfRotation - kFirstOfScale));
      // Deliberate: the file's w is the negated one, and stays so.
      const auto [w, x, y, z] = tokens.NextFloats<4>();
      bone.rotation = {w, x, y, z};
      bone.boneIndex = b;
      pose.AddBone(bone);
    }
  }
  return true;
}

bool Reading::WithinLimit(int count, int limit, const char* what) {
  if (count <= limit) return true;
  return lines_.Refuse(std::to_string(count) + " " + what + " are more than the " +
                       std::to_string(limit) + " that a file may have");
}

}  // namespace

bool ReadLbpText(std::string_view text, TBonePoseInfo& poseInfo, PhonemeMapping& mapping,
                 ReadProblem& problem) {
  Reading reading(text, problem);
  if (!reading.Run()) return false;
  reading.AppendTo(poseInfo, mapping);
  return true;
}

bool ReadLbpFile(const std::string& fileName, TBonePoseInfo& poseInfo, PhonemeMapping& mapping,
                 ReadProblem& problem) {
  return ReadContent(fileName, problem, [&](const std::string& content) {
    return ReadLbpText(content, poseInfo, mapping, problem);
  });
}

bool ReadLbpFile(const std::string& fileName, TBonePoseInfo& poseInfo, PhonemeMapping& mapping) {
  ReadProblem problem;
  return ReadLbpFile(fileName, poseInfo, mapping, problem);
}

}  // namespace lipvane
