#include "bench/paired.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace lipvane::bench {
namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

/// Long enough for the clock and to be rid of the other contender's cache contents, short enough
/// for both to meet the same machine.
constexpr Seconds kSlice{1e-3};
constexpr std::size_t kFewestRounds = 9;

double SecondsFor(const Contender& contender, long calls) {
  const Clock::time_point start = Clock::now();
  for (long i = 0; i < calls; ++i)
    contender.work();
  return Seconds(Clock::now() - start).count();
}

/// How many calls make a slice; at least one. Also warms up.
long CallsOfSlice(const Contender& contender) {
  for (long calls = 1;; calls *= 2) {
    const double seconds = SecondsFor(contender, calls);
    if (seconds >= kSlice.count()) {
      const double needed = static_cast<double>(calls) * kSlice.count() / seconds;
      return std::max(1L, std::lround(needed));
    }
  }
}

/// The time that a unit of the amount takes.
double SecondsForUnit(const Contender& contender, long calls) {
  return SecondsFor(contender, calls) / (static_cast<double>(calls) * contender.amount);
}

}  // namespace

Spread Measure(const Row& row, std::chrono::duration<double> duration) {
  const Contenders contenders = row.prepare();
  const long measuredCalls = CallsOfSlice(contenders.measured);
  const long referenceCalls = CallsOfSlice(contenders.reference);
  std::vector<double> ratios;
  const Clock::time_point start = Clock::now();
  while (ratios.size() < kFewestRounds || Clock::now() - start < duration) {
    const double measured = SecondsForUnit(contenders.measured, measuredCalls);
    const double reference = SecondsForUnit(contenders.reference, referenceCalls);
    ratios.push_back(row.ratio == Ratio::kTime ? measured / reference : reference / measured);
  }
  std::sort(ratios.begin(), ratios.end());
  const auto quantile = [&](double part) {
    return ratios[static_cast<std::size_t>(
        std::lround(part * static_cast<double>(ratios.size() - 1)))];
  };
  return {quantile(0.1), quantile(0.5), quantile(0.9), static_cast<int>(ratios.size())};
}

}  // namespace lipvane::bench
