// A random animation on a random face that changes under way: what is kept between frames must
// never show. Each frame is composed once more by a face that was just made.

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "fuzz/expect.h"
#include "lipvane/engine/controller.h"

namespace {

using lipvane::Quaternion;
using lipvane::TBonePose;
using lipvane::TBonePoseInfo;
using lipvane::TController;
using lipvane::TExpressionInfo;
using lipvane::TIndexedBone;
using lipvane::Vector3;

constexpr int kMostBones = 20;
constexpr int kMostPoses = 9;

/// Whatever is asked for, out of bytes; zeros when they are used up.
class Source {
 public:
  Source(const std::uint8_t* data, std::size_t size) : next_(data), end_(data + size) {}

  bool IsEmpty() const { return next_ == end_; }
  int Below(int count) { return Byte() % count; }
  /// Mostly what rigs have, at times any float at all.
  float Number() {
    const int byte = Byte();
    if (byte < 250) return static_cast<float>(byte - 125) / 100.0F;
    std::uint32_t bits = 0;
    for (int i = 0; i < 4; ++i)
      bits = bits << 8U | static_cast<std::uint32_t>(Byte());
    float number = 0.0F;
    std::memcpy(&number, &bits, sizeof number);
    return number;
  }
  TIndexedBone Bone() {
    const Vector3 translation(Number(), Number(), Number());
    Quaternion rotation(Number() + 1.5F, Number(), Number(), Number());
    if (Below(8) != 0) rotation.Normalize();
    return {translation, rotation, Below(kMostBones)};
  }
  TBonePose Pose(int bones) {
    TBonePose pose;
    for (int i = 0; i < bones; ++i)
      pose.AddBone(Bone());
    return pose;
  }

 private:
  int Byte() { return next_ == end_ ? 0 : *next_++; }

  const std::uint8_t* next_;
  const std::uint8_t* end_;
};

void FillRig(Source& source, TBonePoseInfo& rig, int mostPoses) {
  const int bones = source.Below(kMostBones);
  for (int i = 0; i < bones; ++i) {
    rig.AddBone(std::to_string(i));
    rig.boneIds.push_back(source.Below(kMostBones));
  }
  for (int i = source.Below(mostPoses); i > 0; --i)
    rig.AddPose(source.Pose(bones - source.Below(2) * (bones / 2)));
}

lipvane::TAnimationTrack Track(Source& source, const std::string& name) {
  lipvane::TAnimationTrack track;
  track.name = name;
  for (int i = source.Below(6); i > 0; --i)
    track.AddKey({source.Below(200) - 20, source.Number()});
  return track;
}

void Copy(const TBonePoseInfo& from, TBonePoseInfo& to) {
  to.boneNames = from.boneNames;
  to.boneIds = from.boneIds;
  for (const TBonePose& pose : from.poses) {
    to.poses.emplace_back();
    for (const TIndexedBone& bone : pose.Bones())
      to.poses.back().AddBone(bone);
  }
  to.blendedBones = from.blendedBones;
}

/// The same face, of which nothing was kept.
TController Fresh(TController& face) {
  TController fresh;
  Copy(*face.BonePoseInfo(), *fresh.BonePoseInfo());
  for (int i = 0; i < face.ExpressionCount(); ++i) {
    TExpressionInfo expression;
    expression.name = face.GetExpression(i)->name;
    Copy(*face.GetExpression(i), expression);
    fresh.AddExpression(expression);
  }
  return fresh;
}

/// Bit for bit: what is no number is compared, too.
template <typename T>
void ExpectSameBits(const T& a, const T& b) {
  std::array<unsigned char, sizeof(T)> bitsOfA;
  std::array<unsigned char, sizeof(T)> bitsOfB;
  std::memcpy(bitsOfA.data(), &a, sizeof a);
  std::memcpy(bitsOfB.data(), &b, sizeof b);
  Expect(bitsOfA == bitsOfB);
}

template <typename T>
void ExpectSame(const std::vector<T>& a, const std::vector<T>& b) {
  Expect(a.size() == b.size());
  for (std::size_t i = 0; i < a.size(); ++i)
    ExpectSameBits(a[i], b[i]);
}

void Change(Source& source, TController& face, TBonePose& out) {
  TBonePoseInfo& rig = *face.BonePoseInfo();
  switch (source.Below(10)) {
    case 0:
      rig.GetPose(source.Below(kMostPoses)).GetBone(source.Below(kMostBones)) = source.Bone();
      break;
    case 1:
      rig.GetPose(source.Below(kMostPoses)) = source.Pose(source.Below(kMostBones));
      break;
    case 2:
      rig.poses.insert(rig.poses.begin(), source.Pose(source.Below(kMostBones)));
      break;
    case 3:
      if (!rig.poses.empty()) rig.poses.erase(rig.poses.begin());
      break;
    case 4:
      rig.AddBone("more");
      break;
    case 5:
      rig.boneIds.assign(rig.boneIds.size(), source.Below(kMostBones));
      break;
    case 6:
      if (face.ExpressionCount() > 0)
        face.GetExpression(0)->GetPose(source.Below(2)).AddBone(source.Bone());
      break;
    case 7:
      if (face.ExpressionCount() > 0) face.DeleteExpression(face.GetExpression(0)->name);
      break;
    case 8:
      out.GetBone(source.Below(kMostBones)).boneIndex = source.Below(kMostBones);
      break;
    default:
      face = TController(face);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Source source(data, size);
  TController face;
  FillRig(source, *face.BonePoseInfo(), kMostPoses);
  lipvane::TAnimation animation;
  for (int i = source.Below(3); i > 0; --i) {
    TExpressionInfo expression;
    expression.name = std::to_string(i);
    FillRig(source, expression, 3);
    face.AddExpression(expression);
    animation.AddExpressionTrack(Track(source, expression.name));
  }
  for (int i = source.Below(kMostPoses); i > 0; --i)
    animation.AddTrack(Track(source, ""));
  animation.Digest();

  TBonePose out;
  face.InitializeBones(out);
  std::vector<double> weights;
  for (int frame = 0; frame < 20 && !source.IsEmpty(); ++frame) {
    const double time = source.Below(200) - 10;
    TController fresh = Fresh(face);
    TBonePose expected = out;
    std::vector<double> expectedWeights = weights;
    const bool isOutside = face.UpdateFacialAnim(animation, time, weights, out);
    Expect(fresh.UpdateFacialAnim(animation, time, expectedWeights, expected) == isOutside);
    ExpectSame(out.Bones(), expected.Bones());
    ExpectSame(weights, expectedWeights);
    Change(source, face, out);
  }
  return 0;
}
