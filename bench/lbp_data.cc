#include "bench/lbp_data.h"

#include <algorithm>
#include <sstream>

#include "bench/random_face.h"

namespace lipvane::bench {
namespace {

LbpBone AsWritten(const TIndexedBone& bone) {
  Matrix4 matrix;
  bone.rotation.ToMatrix4(matrix);
  matrix.Translate(bone.translation);
  LbpBone written;
  std::copy(std::begin(matrix.m), std::end(matrix.m), written.matrix.begin());
  std::copy_n(written.matrix.begin() + 12, 3, written.translation.begin());
  return written;
}

naive::BoneNumbers NumbersOf(const LbpBone& bone) {
  naive::BoneNumbers numbers{};
  auto at = std::copy(bone.matrix.begin(), bone.matrix.end(), numbers.begin());
  at = std::copy(bone.translation.begin(), bone.translation.end(), at);
  at = std::copy(bone.scale.begin(), bone.scale.end(), at);
  const std::array<double, 4> rotation = QuaternionFromMatrix(bone.matrix);
  *at++ = -rotation[0];
  std::copy_n(rotation.begin() + 1, 3, at);
  return numbers;
}

}  // namespace

LbpData::LbpData(int bones, int poses) {
  TBonePoseInfo rig = RandomFace(3, Turns::kNear).Rig(bones, poses);
  for (TBonePose& pose : rig.poses) {
    std::vector<LbpBone>& written = poses_.emplace_back();
    std::vector<naive::BoneNumbers>& numbers = numbers_.emplace_back();
    for (int b = 0; b < bones; ++b) {
      written.push_back(AsWritten(pose.GetBone(b)));
      numbers.push_back(NumbersOf(written.back()));
    }
  }
  LbpHeader header;
  header.boneCount = bones;
  header.headBoneName = "head";
  for (const std::string& name : rig.boneNames)
    header.hierarchy.push_back({name, "head"});
  std::ostringstream out;
  WriteLbpHeader(out, header);
  WriteLbpPoseCount(out, poses);
  posesBegin_ = static_cast<std::size_t>(out.tellp());
  WritePoses(out);
  text_ = out.str();
}

void LbpData::WritePoses(std::ostream& out) const {
  for (std::size_t p = 0; p < poses_.size(); ++p) {
    WriteLbpPoseLabel(out, static_cast<int>(p), "");
    WritePoseBoneLines(out, poses_[p]);
    WriteLbpBlankLine(out);
  }
}

}  // namespace lipvane::bench
