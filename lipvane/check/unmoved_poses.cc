#include "lipvane/check/unmoved_poses.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

#include "lipvane/check/words.h"
#include "lipvane/text/lists.h"

namespace lipvane::check {
namespace {

/// A file has six digits, and hosts write dust instead of zeros. Nobody sees as little move.
bool IsSame(float a, float b) {
  return std::abs(a - b) <= 1e-5F * std::max({1.0F, std::abs(a), std::abs(b)});
}

bool IsSame(const TIndexedBone& a, const TIndexedBone& b) {
  const Vector3& t = a.translation;
  const Quaternion& r = a.rotation;
  return IsSame(t.x, b.translation.x) && IsSame(t.y, b.translation.y) &&
         IsSame(t.z, b.translation.z) && IsSame(r.w, b.rotation.w) && IsSame(r.x, b.rotation.x) &&
         IsSame(r.y, b.rotation.y) && IsSame(r.z, b.rotation.z);
}

bool IsSame(const TBonePose& a, const TBonePose& b) {
  return std::equal(a.Bones().begin(), a.Bones().end(), b.Bones().begin(), b.Bones().end(),
                    [](const auto& x, const auto& y) { return IsSame(x, y); });
}

}  // namespace

void CheckUnmovedPoses(const LbpSections& sections, const TBonePoseInfo& rig,
                       const PhonemeMapping& mapping, Recorder& recorder) {
  constexpr std::size_t kMostListed = 8;
  if (rig.boneNames.empty() ||
      sections.boneLines.size() != rig.poses.size() * rig.boneNames.size()) {
    return;
  }
  std::vector<std::string> names = mapping.speechTargets;  // of the poses from 1 on
  names.insert(names.end(), kExpressionNames.begin(), kExpressionNames.end());
  names.resize(std::min(names.size(), rig.poses.empty() ? 0 : rig.poses.size() - 1));
  std::vector<std::string> unmoved;
  std::size_t line = 0;
  for (std::size_t pose = 1; pose <= names.size(); ++pose) {
    if (!IsSame(rig.poses[pose], rig.poses[0])) continue;
    if (unmoved.empty()) line = sections.boneLines[pose * rig.boneNames.size()].number;
    unmoved.push_back(Quoted(names[pose - 1]));
  }
  if (unmoved.empty()) return;
  recorder.Add(line, rule::kUnmovedPose,
               std::to_string(unmoved.size()) + " of " +
                   Counted(static_cast<long long>(names.size()), "pose", "poses") +
                   (unmoved.size() == 1 ? " is the neutral one and moves"
                                        : " are the neutral one and move") +
                   " nothing: " + text::Listed(unmoved, kMostListed) +
                   " (posed on another frame? Pose 1 is at frame 10, pose 2 at 20 ...)");
}

}  // namespace lipvane::check
