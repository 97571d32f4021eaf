#pragma once

#include <array>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "lipvane/engine/bone_pose.h"
#include "lipvane/formats/phonemes.h"
#include "lipvane/formats/read_problem.h"

/// The bone pose file (LBP): one face rig's speech targets, phoneme weights, bones and poses.
namespace lipvane {

/// The only version that there is.
inline constexpr int LBP_FORMAT_VERSION = 2;

/// Appends what the file holds to both objects. False, with both as they were, when it cannot be
/// read, its version is not 2, it ends early, or a count is beyond the limits of limits.h. What
/// else may be odd about it is accepted: a missing or unreadable number is 0, a missing name is
/// empty.
///
/// A rotation's four components are stored as they stand in the file, the writer's negated w
/// included. The engine's failures (TamskException) pass through.
bool ReadLbpFile(const std::string& fileName, TBonePoseInfo& poseInfo, PhonemeMapping& mapping);
/// The same; also says why it refused.
bool ReadLbpFile(const std::string& fileName, TBonePoseInfo& poseInfo, PhonemeMapping& mapping,
                 ReadProblem& problem);
/// The same for a file's content.
bool ReadLbpText(std::string_view text, TBonePoseInfo& poseInfo, PhonemeMapping& mapping,
                 ReadProblem& problem);

/// One bone of one pose, as the scene has it at that time: its local transform, in centimetres.
struct LbpBone {
  /// The local matrix, row by row, for row vectors (translation in elements 12 to 14).
  std::array<double, 16> matrix{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
  std::array<double, 3> translation{};
  std::array<double, 3> scale{1, 1, 1};
};

/// A bone and its first parent in the scene.
struct LbpHierarchyLine {
  std::string bone;
  std::string parent;
};

/// What stands above the poses.
struct LbpHeader {
  /// The speech targets and weights; null for those of a new rig. Weights that it lacks are made.
  PhonemeMapping* mapping = nullptr;
  /// How many bones were asked for. The lines below may be fewer or more: nothing compares them.
  int boneCount = 0;
  std::vector<LbpHierarchyLine> hierarchy;
  /// False when the scene could not be walked: the header then ends after its hierarchy lines.
  bool hierarchyComplete = true;
  /// For the line "head_bone=", which no reader looks at.
  std::string headBoneName;
};

/// The unit quaternion w, x, y, z of the rotation in the upper left 3x3 of a matrix laid out as in
/// LbpBone.
std::array<double, 4> QuaternionFromMatrix(const std::array<double, 16>& matrix);

// The writer. Every line is flushed as it is made; what the stream makes of it, its state tells.

/// False when a weight of the mapping cannot be read; the header then ends before that row.
bool WriteLbpHeader(std::ostream& out, const LbpHeader& header);
/// The section of the number of poses, its blank line included.
void WriteLbpPoseCount(std::ostream& out, int count);
/// The title of pose `number` (from 0).
void WriteLbpPoseLabel(std::ostream& out, int number, std::string_view name);
/// The lines of one pose, one a bone.
void WritePoseBoneLines(std::ostream& out, const std::vector<LbpBone>& bones);
/// What closes a pose.
void WriteLbpBlankLine(std::ostream& out);

}  // namespace lipvane
