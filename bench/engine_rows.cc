#include <benchmark/benchmark.h>

#include <memory>
#include <utility>

#include "bench/playback.h"
#include "bench/played_face.h"
#include "bench/rows.h"

namespace lipvane::bench {
namespace {

constexpr unsigned kSeed = 7;
constexpr int kBones = 64;
constexpr int kPoses = 20;
constexpr int kSamples = 600;

Contenders Blends(std::size_t weightsSet) {
  struct Data {
    TBonePoseInfo rig = RandomFace(kSeed, Turns::kNear).Rig(kBones, kPoses);
    naive::Rig naiveRig = NaiveRig(rig);
    std::vector<double> weights;
  };
  const auto data = std::make_shared<Data>();
  data->weights = SomeWeights(kPoses, weightsSet);
  return {{[data] {
            data->rig.Blend(data->weights);
            benchmark::DoNotOptimize(data->rig.blendedBones.data());
            benchmark::ClobberMemory();
          }},
          {[data] {
            naive::Blend(data->naiveRig, data->naiveRig.poses[0], data->weights);
            benchmark::DoNotOptimize(data->naiveRig.blended.data());
            benchmark::ClobberMemory();
          }}};
}

Contenders Frames(int activeTargets, int activeExpressions) {
  FaceSize size;
  size.activeTargets = activeTargets;
  size.activeExpressions = activeExpressions;
  const auto face = std::make_shared<PlayedFace>(kSeed, Turns::kNear, size);
  Moments moments = InOrder(face->Length(), kMoments);
  return {{[face, moments]() mutable {
            face->Play(moments.Next());
            benchmark::ClobberMemory();
          }},
          {[face, moments]() mutable {
            face->PlayNaive(moments.Next());
            benchmark::ClobberMemory();
          }}};
}

Contender Samples(int keys, Moments (*makeMoments)(double, std::size_t)) {
  TAnimationTrack track = RandomFace(kSeed, Turns::kNear).Track("Target", keys, 0.0, 1.0);
  Moments moments = makeMoments(track.GetKey(keys - 1)->time, kMoments);
  return {[track = std::move(track), moments = std::move(moments)]() mutable {
            for (int i = 0; i < kSamples; ++i)
              benchmark::DoNotOptimize(track.ValueAtTime(moments.Next()));
          },
          kSamples};
}

Contenders LongTrackToShort(Moments (*makeMoments)(double, std::size_t)) {
  return {Samples(10000, makeMoments), Samples(100, makeMoments)};
}

}  // namespace

std::vector<Row> EngineRows() {
  return {
      {"blend 64x20, all weights", Ratio::kTime, 0.25, 0.08, [] { return Blends(kPoses); }},
      {"blend 64x20, 3 weights", Ratio::kTime, 0.09, 0.02, [] { return Blends(3); }},
      {"whole frame, 3 of 15 and 1 of 4 active", Ratio::kTime, 0.20, 0.08,
       [] { return Frames(3, 1); }},
      {"whole frame, all active", Ratio::kTime, 0.20, 0.08, [] { return Frames(15, 4); }},
      {"track in order, 10000 keys to 100", Ratio::kTime, 1.5, 1.1,
       [] { return LongTrackToShort(InOrder); }},
      {"track at random, 10000 keys to 100", Ratio::kTime, 3.0, 2.0,
       [] { return LongTrackToShort(AtRandom); }},
  };
}

}  // namespace lipvane::bench
