#pragma once

#include <chrono>
#include <functional>
#include <string>

/// Ratios of two pieces of work. How fast a machine runs changes from second to second, with its
/// clock and with what else it does, by half and more; what two pieces of work take right after
/// each other changes together. So each round times a slice of one and then of the other, and the
/// ratio is taken inside the round.
namespace lipvane::bench {

/// One of the two, with all the data that it works on.
struct Contender {
  std::string name;
  std::function<void()> work;
  /// What one call of `work` does, in whatever both are counted by: calls, samples, bytes.
  double amount = 1.0;
};

struct Contenders {
  Contender measured;
  Contender reference;
};

enum class Ratio {
  kTime,   ///< the measured one's time for an amount to the reference's: less is better
  kSpeed,  ///< the other way round: more is better
};

struct Row {
  std::string name;
  Ratio ratio = Ratio::kTime;
  double must = 0.0;
  double aim = 0.0;
  /// Makes the data, which lives only as long as the row is measured.
  std::function<Contenders()> prepare;
};

/// The ratios of all rounds. Quantiles and not a mean: a round that something else broke into is
/// far off, and means nothing.
struct Spread {
  double p10 = 0.0;
  double median = 0.0;
  double p90 = 0.0;
  int rounds = 0;
};

/// Measures a row for about `duration`, and for a few rounds at least.
Spread Measure(const Row& row, std::chrono::duration<double> duration);

}  // namespace lipvane::bench
