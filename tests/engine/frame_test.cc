// Whole frames against the formulas in double precision, over random rigs and animations.

#include <Imath/ImathQuat.h>
#include <Imath/ImathVec.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include "lipvane/engine/controller.h"

namespace lipvane {
namespace {

/// A bone's transform in double precision.
struct Stand {
  Imath::V3d translation;
  Imath::Quatd rotation;

  Stand(const Imath::V3d& t, const Imath::Quatd& r) : translation(t), rotation(r) {}
  explicit Stand(const TIndexedBone& bone)
      : translation(bone.translation.x, bone.translation.y, bone.translation.z),
        rotation(bone.rotation.w, bone.rotation.x, bone.rotation.y, bone.rotation.z) {}

  bool IsCloseTo(const Stand& other, double error) const {
    return translation.equalWithAbsError(other.translation, error) &&
           std::abs(rotation.r - other.rotation.r) < error &&
           rotation.v.equalWithAbsError(other.rotation.v, error);
  }
};

/// How often each way to interpolate was taken, and whether rounding could have taken another.
struct Taken {
  int neutral = 0, chord = 0, arc = 0;
  bool isDoubtful = false;
  bool isSignDoubtful = false;
};

/// One step of the blend as it is on paper, in double precision and by Imath's quaternions.
void AddStep(Stand& sum, const Stand& target, const Stand& base, double weight, Taken& taken) {
  sum.translation += (target.translation - base.translation) * weight;
  const Imath::Quatd& from = base.rotation;
  Imath::Quatd to = target.rotation.normalized();
  double cosine = from ^ to;
  if (cosine < 0) {
    to = -to;
    cosine = -cosine;
  }
  if (std::abs(cosine - 0.55) < 1e-4) taken.isDoubtful = true;
  if (cosine < 1 - 2e-8 && cosine > 1 - 1e-6) taken.isDoubtful = true;
  Imath::Quatd between = from;
  if (cosine > 0.9999999) {
    ++taken.neutral;
  } else if (cosine > 0.55) {
    between = (from * (1 - weight) + to * weight).normalized();
    ++taken.chord;
  } else {
    const double angle = std::acos(cosine);
    between = (from * std::sin((1 - weight) * angle) + to * std::sin(weight * angle)).normalized();
    ++taken.arc;
  }
  sum.rotation *= -(~from) * between;
}

constexpr int kBones = 12;
constexpr int kSpeechTargets = 5;
constexpr int kLength = 1000;

class RandomFace {
 public:
  explicit RandomFace(unsigned seed) : random_(seed) {
    for (int bone = 0; bone < kBones; ++bone) {
      rig.AddBone("bone");
      rig.boneIds.push_back(IdOf(bone));
      rig.GetPose(0).AddBone(Bone(0.0F, Quaternion()));
    }
    for (int target = 0; target < kSpeechTargets; ++target) {
      TBonePose pose;
      for (int bone = 0; bone < kBones; ++bone)
        pose.AddBone(PoseOf(bone));
      rig.AddPose(pose);
      animation.AddTrack(Track("Target", -0.5F, 1.4F));
    }
    // Each moves most of the bones; the last has several poses and takes the speech weights.
    for (const char* name : {"Brow", "Blink", "Several"}) {
      TExpressionInfo expression;
      expression.name = name;
      const int poses = expression.name == "Several" ? 2 : 1;
      for (int bone = kBones - 1; bone >= 0; --bone) {
        if (Uniform(0, 1) < 0.3F) continue;
        expression.AddBone("bone");
        expression.boneIds.push_back(IdOf(bone));
        for (int pose = 0; pose < poses; ++pose)
          expression.GetPose(pose).AddBone(PoseOf(bone));
      }
      expressions.push_back(expression);
      animation.AddExpressionTrack(Track(name, -0.4F, 1.1F));
    }
    animation.Digest();
  }

  static int IdOf(int bone) { return 100 - 7 * bone; }

  TBonePoseInfo rig;
  std::vector<TExpressionInfo> expressions;
  TAnimation animation;

 private:
  float Uniform(float low, float high) {
    return std::uniform_real_distribution<float>(low, high)(random_);
  }
  TIndexedBone Bone(float halfAngle, const Quaternion& from) {
    const Quaternion turn =
        Quaternion::FromAxisAngle(2 * halfAngle, Uniform(-1, 1), Uniform(-1, 1), Uniform(-1, 1));
    return {{Uniform(-5, 5), Uniform(-5, 5), Uniform(-5, 5)}, Quaternion::Multiply(turn, from), 0};
  }
  /// As far from neutral as one of the three ways to interpolate takes; of either sign and any
  /// length.
  TIndexedBone PoseOf(int bone) {
    const float kind = Uniform(0, 3);
    const float halfAngle = kind < 1 ? 0.0F : kind < 2 ? Uniform(0.1F, 0.9F) : Uniform(1, 1.5F);
    TIndexedBone made = Bone(halfAngle, rig.GetPose(0).GetBone(bone).rotation);
    const float length = Uniform(0.5F, 2) * (Uniform(-1, 1) < 0 ? -1.0F : 1.0F);
    const Quaternion& q = made.rotation;
    made.rotation = {q.w * length, q.x * length, q.y * length, q.z * length};
    return made;
  }
  TAnimationTrack Track(const char* name, float low, float high) {
    TAnimationTrack track;
    track.name = name;
    for (int time = 0; time <= kLength; time += 1 + static_cast<int>(Uniform(0, 200)))
      track.AddKey({time, static_cast<double>(Uniform(low, high))});
    track.AddKey({kLength + 1, 0.3});
    return track;
  }

  std::mt19937 random_;
};

double Sampled(const TAnimationTrack& track, double time) {
  int i = 0;
  while (track.GetKey(i + 1)->time <= time)
    ++i;
  const TAnimationKey& a = *track.GetKey(i);
  const TAnimationKey& b = *track.GetKey(i + 1);
  const double u = (time - a.time) / (b.time - a.time);
  return a.value + (b.value - a.value) * u * u * (3 - 2 * u);
}

/// Bone `bone` of the rig, speech and expressions composed.
Stand Composed(RandomFace& face, int bone, double time, Taken& taken) {
  const Stand base(face.rig.GetPose(0).GetBone(bone));
  const auto weightOfPose = [&](int pose) {
    return pose == 0 ? 0.0 : Sampled(*face.animation.GetTrack(pose - 1), time);
  };
  Stand speech = base;
  for (int pose = 0; pose <= kSpeechTargets; ++pose)
    AddStep(speech, Stand(face.rig.GetPose(pose).GetBone(bone)), base, weightOfPose(pose), taken);

  struct Part {
    Stand stand;
    double weight;
  };
  std::vector<Part> parts;
  double sum = 0.0;
  for (TExpressionInfo& expression : face.expressions) {
    const int own = expression.FindBoneIndex(RandomFace::IdOf(bone));
    if (own < 0) continue;
    Stand stand(expression.GetPose(0).GetBone(own));
    const Stand first = stand;
    for (int pose = 0; pose < static_cast<int>(expression.poses.size()); ++pose) {
      if (expression.poses.size() == 1) break;
      AddStep(stand, Stand(expression.GetPose(pose).GetBone(own)), first, weightOfPose(pose),
              taken);
    }
    parts.push_back({stand, Sampled(*face.animation.GetExpressionTrack(expression.name), time)});
    sum += parts.back().weight;
  }
  Stand composed = base;
  double rest = 1.0;
  for (const Part& part : parts) {
    const double weight = sum > 1 ? part.weight / sum : part.weight;
    rest -= weight;
    AddStep(composed, part.stand, base, weight, taken);
  }
  // What was normalised leaves nothing, or so little that it only flips the sign.
  taken.isSignDoubtful = sum > 1;
  if (sum > 1) return composed;
  if (std::abs(rest) < 1e-5) taken.isDoubtful = true;
  if (rest > 0) AddStep(composed, speech, base, rest, taken);
  return composed;
}

TEST(FrameTest, AgreesWithDoublePrecisionOverRandomFaces) {
  Taken all;
  int compared = 0;
  int normalised = 0;
  for (unsigned seed = 0; seed < 40; ++seed) {
    RandomFace face(seed);
    TController controller;
    controller.SetBonePoseInfo(face.rig);
    for (const TExpressionInfo& expression : face.expressions)
      controller.AddExpression(expression);
    TBonePose out;
    controller.InitializeBones(out);
    ASSERT_EQ(out.BoneCount(), kBones);
    std::vector<double> weights;
    for (double time = 0; time <= kLength; time += 83.3) {
      ASSERT_FALSE(controller.UpdateFacialAnim(face.animation, time, weights, out));
      normalised += controller.GetExpression(0)->weight + controller.GetExpression(1)->weight > 1;
      for (int bone = 0; bone < kBones; ++bone) {
        Taken taken;
        const Stand expected = Composed(face, bone, time, taken);
        if (taken.isDoubtful) continue;
        ++compared;
        Stand played(out.GetBone(bone));
        if (taken.isSignDoubtful && (played.rotation ^ expected.rotation) < 0) {
          played.rotation = -played.rotation;
        }
        ASSERT_TRUE(played.IsCloseTo(expected, 1e-4))
            << "seed " << seed << ", time " << time << ", bone " << bone;
        all.neutral += taken.neutral;
        all.chord += taken.chord;
        all.arc += taken.arc;
      }
    }
  }
  EXPECT_GT(compared, 40 * 12 * kBones * 9 / 10);
  EXPECT_GT(normalised, 20);
  EXPECT_GT(std::min({all.neutral, all.chord, all.arc}), 1000);
}

}  // namespace
}  // namespace lipvane
