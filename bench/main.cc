#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <fstream>
#include <iostream>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/rows.h"

namespace {

using lipvane::bench::Ratio;
using lipvane::bench::Row;
using lipvane::bench::Spread;
using Json = nlohmann::ordered_json;

std::vector<Row> RowsNamed(const std::string& part) {
  std::vector<Row> rows;
  for (const auto& some : {lipvane::bench::EngineRows(), lipvane::bench::FormatsRows(),
                           lipvane::bench::SceneRows(), lipvane::bench::ProgramRows()}) {
    for (const Row& row : some) {
      if (row.name.find(part) != std::string::npos) rows.push_back(row);
    }
  }
  return rows;
}

void Print(const Row& row, const Spread& spread) {
  const char* const bound = row.ratio == Ratio::kTime ? "<=" : ">=";
  std::printf("%-48s %7.3f  [%.3f .. %.3f]   must %s %g  aim %s %g\n", row.name.c_str(),
              spread.median, spread.p10, spread.p90, bound, row.must, bound, row.aim);
  std::fflush(stdout);
}

Json AsJson(const Row& row, const Spread& spread) {
  return {{"name", row.name},        {"better", row.ratio == Ratio::kTime ? "less" : "more"},
          {"median", spread.median}, {"p10", spread.p10},
          {"p90", spread.p90},       {"rounds", spread.rounds},
          {"must", row.must},        {"aim", row.aim}};
}

int Main(int argc, char** argv) {
  CLI::App app("Medians of in-round ratios, with 10th and 90th percentile.", "lipvane_bench");
  std::string jsonFile;
  std::string filter;
  double seconds = 2.0;
  app.add_option("--json", jsonFile, "writes the results there, too");
  app.add_option("--filter", filter, "only rows whose name holds this text");
  app.add_option("--seconds", seconds, "how long each row is measured, about")
      ->check(CLI::Range(0.0, 3600.0))
      ->capture_default_str();
  CLI11_PARSE(app, argc, argv);

  const std::vector<Row> rows = RowsNamed(filter);
  if (rows.empty()) throw std::runtime_error("no row's name holds \"" + filter + "\"");
  std::ofstream json;
  if (!jsonFile.empty()) {
    json.open(jsonFile);
    if (!json) throw std::runtime_error(jsonFile + ": cannot be written");
  }
  Json results = Json::array();
  for (const Row& row : rows) {
    const Spread spread = lipvane::bench::Measure(row, std::chrono::duration<double>(seconds));
    Print(row, spread);
    results.push_back(AsJson(row, spread));
  }
  if (!jsonFile.empty() && !(json << results.dump(2) << std::endl)) {
    throw std::runtime_error(jsonFile + ": could not be written");
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return Main(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "lipvane_bench: " << error.what() << '\n';
    return 1;
  }
}
