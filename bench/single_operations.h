#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "bench/paired.h"

namespace lipvane::bench {

/// Makes each contender of the rows a benchmark of its own, and runs them as the arguments say:
/// times, where rows are ratios. Returns the exit status.
inline int RunSingleOperations(const std::vector<Row>& rows, int argc, char** argv) {
  std::set<std::string> names;
  for (const Row& row : rows) {
    const Contenders contenders = row.prepare();
    for (const Contender& contender : {contenders.measured, contenders.reference}) {
      if (!names.insert(contender.name).second) continue;
      benchmark::RegisterBenchmark(contender.name.c_str(), [contender](benchmark::State& state) {
        for ([[maybe_unused]] auto call : state)
          contender.work();
        state.SetItemsProcessed(
            static_cast<std::int64_t>(static_cast<double>(state.iterations()) * contender.amount));
      });
    }
  }
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}

}  // namespace lipvane::bench
