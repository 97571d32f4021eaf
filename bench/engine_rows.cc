#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "bench/played_face.h"
#include "bench/rows.h"

namespace lipvane::bench {
namespace {

constexpr unsigned kSeed = 7;
constexpr int kBones = 64;
constexpr int kPoses = 20;
constexpr int kSamples = 600;

enum class Order { kInTime, kRandom };

/// The moments of the frames, 60 a second, of a play of this length in milliseconds that is
/// repeated without end.
class Moments {
 public:
  Moments(double length, Order order) {
    for (std::size_t i = 0; i < kCount; ++i)
      times_.push_back(std::fmod(static_cast<double>(i) * 1000.0 / 60.0, length));
    if (order == Order::kRandom) std::shuffle(times_.begin(), times_.end(), std::mt19937(1));
  }

  double Next() {
    next_ = next_ + 1 < kCount ? next_ + 1 : 0;
    return times_[next_];
  }

 private:
  /// So many that a processor does not learn a random order by heart.
  static constexpr std::size_t kCount = 60000;

  std::vector<double> times_;
  std::size_t next_ = 0;
};

Contenders Blends(std::size_t weightsSet) {
  TBonePoseInfo rig = RandomFace(kSeed, Turns::kNear).Rig(kBones, kPoses);
  std::vector<double> weights(kPoses, 0.0);
  for (std::size_t i = 0; i < weightsSet; ++i)
    weights[i] = 0.1 + 0.8 * static_cast<double>(i) / kPoses;
  const std::string name = "blend, weights set: " + std::to_string(weightsSet);
  return {{name,
           [rig, weights]() mutable {
             rig.Blend(weights);
             benchmark::DoNotOptimize(rig.blendedBones.data());
             benchmark::ClobberMemory();
           }},
          {name + ", naive", [naiveRig = NaiveRig(rig), weights]() mutable {
             naive::Blend(naiveRig, naiveRig.poses[0], weights);
             benchmark::DoNotOptimize(naiveRig.blended.data());
             benchmark::ClobberMemory();
           }}};
}

/// A frame of one face, or of each of many faces in turn.
Contenders Frames(int activeTargets, int activeExpressions, std::size_t faces) {
  FaceSize size;
  size.activeTargets = activeTargets;
  size.activeExpressions = activeExpressions;
  PlayedFace first(kSeed, Turns::kNear, size);
  first.Play(0.0);  // copies share what the first blend has made
  const auto crowd = std::make_shared<std::vector<PlayedFace>>(faces, first);
  const auto player = [&](auto play) {
    return [crowd, play, moments = Moments(first.Length(), Order::kInTime), time = 0.0,
            next = std::size_t{0}]() mutable {
      if (next == 0) time = moments.Next();
      play((*crowd)[next], time);
      benchmark::ClobberMemory();
      next = next + 1 < crowd->size() ? next + 1 : 0;
    };
  };
  const std::string name =
      "frame of " + std::to_string(faces) + ", targets active: " + std::to_string(activeTargets);
  return {{name, player([](PlayedFace& face, double time) { face.Play(time); })},
          {name + ", naive", player([](PlayedFace& face, double time) { face.PlayNaive(time); })}};
}

Contender Samples(int keys, Order order) {
  const TAnimationTrack track = RandomFace(kSeed, Turns::kNear).Track("Target", keys, 0.0, 1.0);
  const Moments all(track.GetKey(keys - 1)->time, order);
  return {std::string("samples ") + (order == Order::kInTime ? "in order" : "at random") +
              ", keys: " + std::to_string(keys),
          [track, moments = all]() mutable {
            for (int i = 0; i < kSamples; ++i)
              benchmark::DoNotOptimize(track.ValueAtTime(moments.Next()));
          },
          kSamples};
}

Contenders LongTrackToShort(Order order) {
  return {Samples(10000, order), Samples(100, order)};
}

}  // namespace

std::vector<Row> EngineRows() {
  return {
      {"blend 64x20, all weights", Ratio::kTime, 0.25, 0.08, [] { return Blends(kPoses); }},
      {"blend 64x20, 3 weights", Ratio::kTime, 0.09, 0.02, [] { return Blends(3); }},
      {"whole frame, 3 of 15 and 1 of 4 active", Ratio::kTime, 0.20, 0.08,
       [] { return Frames(3, 1, 1); }},
      {"whole frame, all active", Ratio::kTime, 0.20, 0.08, [] { return Frames(15, 4, 1); }},
      {"whole frame in a crowd of 1000, 3 and 1 active", Ratio::kTime, 0.20, 0.08,
       [] { return Frames(3, 1, 1000); }},
      {"track in order, 10000 keys to 100", Ratio::kTime, 1.5, 1.1,
       [] { return LongTrackToShort(Order::kInTime); }},
      {"track at random, 10000 keys to 100", Ratio::kTime, 3.0, 2.0,
       [] { return LongTrackToShort(Order::kRandom); }},
  };
}

}  // namespace lipvane::bench
