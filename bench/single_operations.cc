#include <benchmark/benchmark.h>

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "bench/rows.h"

/// Makes each contender of the rows a benchmark of its own: times, where rows are ratios.
int main(int argc, char** argv) {
  std::set<std::string> names;
  for (const auto& rows : {lipvane::bench::EngineRows(), lipvane::bench::FormatsRows()}) {
    for (const lipvane::bench::Row& row : rows) {
      const lipvane::bench::Contenders contenders = row.prepare();
      for (const auto& contender : {contenders.measured, contenders.reference}) {
        if (!names.insert(contender.name).second) continue;
        benchmark::RegisterBenchmark(contender.name.c_str(), [contender](benchmark::State& state) {
          for ([[maybe_unused]] auto call : state)
            contender.work();
          const double amount = static_cast<double>(state.iterations()) * contender.amount;
          state.SetItemsProcessed(static_cast<std::int64_t>(amount));
        });
      }
    }
  }
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
