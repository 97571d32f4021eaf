// Single operations of the engine, and the naive reference's.

#include <benchmark/benchmark.h>

#include "bench/playback.h"
#include "bench/played_face.h"

namespace lipvane::bench {
namespace {

constexpr unsigned kSeed = 7;

TBonePoseInfo Rig() {
  return RandomFace(kSeed, Turns::kNear).Rig(64, 20);
}

/// The argument is how many of the weights are set.
void Blend(benchmark::State& state) {
  TBonePoseInfo rig = Rig();
  std::vector<double> weights = SomeWeights(20, static_cast<std::size_t>(state.range(0)));
  for ([[maybe_unused]] auto call : state) {
    rig.Blend(weights);
    benchmark::ClobberMemory();
  }
}
BENCHMARK(Blend)->Arg(20)->Arg(3);

void BlendNaive(benchmark::State& state) {
  TBonePoseInfo source = Rig();
  naive::Rig rig = NaiveRig(source);
  const std::vector<double> weights = SomeWeights(20, static_cast<std::size_t>(state.range(0)));
  for ([[maybe_unused]] auto call : state) {
    naive::Blend(rig, rig.poses[0], weights);
    benchmark::ClobberMemory();
  }
}
BENCHMARK(BlendNaive)->Arg(20)->Arg(3);

/// The arguments are how many of 15 speech targets and of 4 expressions are active.
template <void (PlayedFace::*kPlay)(double)>
void Frame(benchmark::State& state) {
  FaceSize size;
  size.activeTargets = static_cast<int>(state.range(0));
  size.activeExpressions = static_cast<int>(state.range(1));
  PlayedFace face(kSeed, Turns::kNear, size);
  Moments moments = InOrder(face.Length(), kMoments);
  for ([[maybe_unused]] auto call : state) {
    (face.*kPlay)(moments.Next());
    benchmark::ClobberMemory();
  }
}
BENCHMARK_TEMPLATE(Frame, &PlayedFace::Play)->Args({3, 1})->Args({15, 4});
BENCHMARK_TEMPLATE(Frame, &PlayedFace::PlayNaive)->Args({3, 1})->Args({15, 4});

/// The argument is the number of keys.
template <Moments (*kMakeMoments)(double, std::size_t)>
void ValueAtTime(benchmark::State& state) {
  const auto keys = static_cast<int>(state.range(0));
  const TAnimationTrack track = RandomFace(kSeed, Turns::kNear).Track("Target", keys, 0.0, 1.0);
  Moments moments = kMakeMoments(track.GetKey(keys - 1)->time, kMoments);
  for ([[maybe_unused]] auto call : state) {
    benchmark::DoNotOptimize(track.ValueAtTime(moments.Next()));
  }
}
BENCHMARK_TEMPLATE(ValueAtTime, InOrder)->Arg(10)->Arg(100)->Arg(10000);
BENCHMARK_TEMPLATE(ValueAtTime, AtRandom)->Arg(10)->Arg(100)->Arg(10000);

}  // namespace
}  // namespace lipvane::bench
