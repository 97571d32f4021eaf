// Reading and writing bone pose files; the arguments are numbers of bones and poses.

#include <benchmark/benchmark.h>

#include <fstream>

#include "bench/lbp_data.h"
#include "tests/support/temporary_folder.h"

namespace lipvane::bench {
namespace {

LbpData Data(const benchmark::State& state) {
  return {static_cast<int>(state.range(0)), static_cast<int>(state.range(1))};
}

void CountBytes(benchmark::State& state, std::size_t bytesOfCall) {
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytesOfCall));
}

void ReadFile(benchmark::State& state) {
  const LbpData data = Data(state);
  const test::TemporaryFolder folder;
  const std::string name = folder.Make("face.lbp", data.Text());
  for ([[maybe_unused]] auto call : state) {
    TBonePoseInfo rig;
    PhonemeMapping mapping;
    if (!ReadLbpFile(name, rig, mapping)) state.SkipWithError("not read");
    benchmark::DoNotOptimize(rig.poses.data());
  }
  CountBytes(state, data.Text().size());
}
BENCHMARK(ReadFile)->Args({60, 20})->Args({300, 60});

void ReadNaive(benchmark::State& state) {
  const LbpData data = Data(state);
  for ([[maybe_unused]] auto call : state) {
    std::vector<float> numbers;
    naive::ReadBoneLines(data.PoseSection(), numbers);
    benchmark::DoNotOptimize(numbers.data());
  }
  CountBytes(state, data.PoseSection().size());
}
BENCHMARK(ReadNaive)->Args({60, 20})->Args({300, 60});

void WriteFile(benchmark::State& state) {
  const LbpData data = Data(state);
  const test::TemporaryFolder folder;
  for ([[maybe_unused]] auto call : state) {
    std::ofstream out(folder.Path("written.lbp"));
    data.WritePoses(out);
  }
  CountBytes(state, data.PoseSection().size());
}
BENCHMARK(WriteFile)->Args({60, 20})->Args({300, 60});

void WriteNaive(benchmark::State& state) {
  const LbpData data = Data(state);
  std::vector<char> buffer(2 * data.Text().size());
  for ([[maybe_unused]] auto call : state) {
    benchmark::DoNotOptimize(naive::WritePoses(data.Numbers(), buffer));
    benchmark::ClobberMemory();
  }
  CountBytes(state, data.PoseSection().size());
}
BENCHMARK(WriteNaive)->Args({60, 20})->Args({300, 60});

}  // namespace
}  // namespace lipvane::bench
