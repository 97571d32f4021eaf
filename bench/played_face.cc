#include "bench/played_face.h"

#include <cstddef>
#include <string>

namespace lipvane::bench {
namespace {

constexpr int kSpeechTargets = 15;
constexpr int kExpressions = 4;
constexpr int kExpressionBones = 12;

naive::Bone NaiveBone(const TIndexedBone& bone) {
  const Vector3& t = bone.translation;
  const Quaternion& r = bone.rotation;
  return {{t.x, t.y, t.z}, {r.w, r.x, r.y, r.z}};
}

naive::Track NaiveTrack(const TAnimationTrack& track) {
  naive::Track result;
  for (int k = 0; k < track.KeyCount(); ++k)
    result.push_back({track.GetKey(k)->time, track.GetKey(k)->value});
  return result;
}

}  // namespace

naive::Rig NaiveRig(const TBonePoseInfo& rig) {
  naive::Rig result;
  result.ids = rig.boneIds;
  for (const TBonePose& pose : rig.poses) {
    naive::Pose bones;
    for (const TIndexedBone& bone : pose.Bones())
      bones.push_back(NaiveBone(bone));
    result.poses.push_back(bones);
  }
  result.blended.resize(result.ids.size());
  return result;
}

PlayedFace::PlayedFace(unsigned seed, Turns turns, const FaceSize& size) {
  RandomFace random(seed, turns);
  const auto track = [&](const std::string& name, bool isActive, double lowest) {
    return isActive ? random.Track(name, size.keys, lowest, size.highest)
                    : random.Track(name, size.keys, 0.0, 0.0);
  };
  TBonePoseInfo rig = random.Rig(size.bones, 1 + kSpeechTargets + kExpressions);
  controller_.SetBonePoseInfo(rig);
  naive_.rig = NaiveRig(rig);
  for (int t = 0; t < kSpeechTargets; ++t) {
    animation_.AddTrack(track("Target", t < size.activeTargets, size.lowest));
    naive_.tracks.push_back(NaiveTrack(*animation_.GetTrack(t)));
  }
  for (int e = 0; e < kExpressions; ++e) {
    const std::string name = "Expression" + std::to_string(e);
    // Neighbours share half of their bones.
    TExpressionInfo expression = random.Expression(name, rig, e * kExpressionBones / 2,
                                                   kExpressionBones, size.expressionPoses);
    controller_.AddExpression(expression);
    animation_.AddExpressionTrack(
        track(name, e < size.activeExpressions, size.lowestOfExpressions));
    naive_.expressions.push_back(
        {NaiveRig(expression), NaiveTrack(*animation_.GetExpressionTrack(name))});
  }
  animation_.Digest();
  controller_.InitializeBones(out_);
  naive_.weights.resize(rig.poses.size());
  for (const TIndexedBone& bone : out_.Bones())
    naive_.outIds.push_back(bone.boneIndex);
  naiveOut_.resize(naive_.outIds.size());
}

}  // namespace lipvane::bench
