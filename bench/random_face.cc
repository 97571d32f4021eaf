#include "bench/random_face.h"

#include <array>
#include <cstddef>
#include <utility>

namespace lipvane::bench {
namespace {

/// For each way to interpolate, and about the two bounds between them.
constexpr std::array<std::pair<double, double>, 5> kHalfAngles = {
    {{0.0, 0.0}, {3e-4, 6e-4}, {0.01, 0.9}, {0.985, 0.992}, {1.0, 1.5}}};

Quaternion Scaled(const Quaternion& q, float scale) {
  return {q.w * scale, q.x * scale, q.y * scale, q.z * scale};
}

}  // namespace

Vector3 RandomFace::Place() {
  const auto component = [&] { return static_cast<float>(Uniform(-5.0, 5.0)); };
  return {component(), component(), component()};
}

Quaternion RandomFace::Turned(const Quaternion& from, double leastHalfAngle, double mostHalfAngle) {
  const double angle = 2.0 * Uniform(leastHalfAngle, mostHalfAngle);
  const Vector3 axis = Place();
  return Quaternion::Multiply(
      Quaternion::FromAxisAngle(static_cast<float>(angle), axis.x, axis.y, axis.z), from);
}

Quaternion RandomFace::Neutral() {
  const Quaternion rotation = Turned({}, 0.0, 1.5);
  if (turns_ == Turns::kNear) return rotation;
  // No rig stands so, but it is what the interpolation's last resort is for.
  const double kind = Uniform(0.0, 10.0);
  if (kind < 1.0) return {0, 0, 0, 0};
  if (kind < 2.0) return Scaled(rotation, 1e-3F);
  if (kind < 3.0) return Scaled(rotation, static_cast<float>(Uniform(0.5, 1.5)));
  return kind < 5.0 ? Scaled(rotation, static_cast<float>(Uniform(0.992, 1.008))) : rotation;
}

Quaternion RandomFace::Posed(const Quaternion& neutral) {
  if (turns_ == Turns::kNear) return Turned(neutral, 0.01, 0.4);
  if (Uniform(0.0, 10.0) < 1.0) return Quaternion(0, 0, 0, 0);
  const auto [least, most] =
      kHalfAngles[static_cast<std::size_t>(Uniform(0.0, kHalfAngles.size()))];
  return Scaled(Turned(neutral, least, most), static_cast<float>(Uniform(-2.0, 2.0)));
}

TBonePoseInfo RandomFace::Rig(int bones, int poses) {
  TBonePoseInfo rig;
  for (int b = 0; b < bones; ++b) {
    rig.AddBone("bone" + std::to_string(b));
    rig.boneIds.push_back(b + 1);
    rig.GetPose(0).AddBone({Place(), Neutral(), b});
    for (int p = 1; p < poses; ++p) {
      rig.GetPose(p).AddBone({Place(), Posed(rig.GetPose(0).GetBone(b).rotation), b});
    }
  }
  return rig;
}

TExpressionInfo RandomFace::Expression(const std::string& name, TBonePoseInfo& rig, int first,
                                       int bones, int poses) {
  TExpressionInfo expression;
  expression.name = name;
  for (int b = 0; b < bones; ++b) {
    const int ofRig = first + b;
    const bool isInRig = ofRig < static_cast<int>(rig.boneNames.size());
    const Quaternion neutral = isInRig ? rig.GetPose(0).GetBone(ofRig).rotation : Quaternion();
    expression.AddBone("bone" + std::to_string(ofRig));
    expression.boneIds.push_back(ofRig + 1);
    for (int p = 0; p < poses; ++p) {
      expression.GetPose(p).AddBone({Place(), Posed(neutral), b});
    }
  }
  return expression;
}

TAnimationTrack RandomFace::Track(const std::string& name, int keys, double low, double high) {
  TAnimationTrack track;
  track.name = name;
  int time = 0;
  for (int k = 0; k < keys; ++k) {
    track.AddKey({time, Uniform(low, high)});
    time += static_cast<int>(Uniform(20.0, 180.0));
  }
  return track;
}

}  // namespace lipvane::bench
