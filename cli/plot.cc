#include "cli/plot.h"

#include <filesystem>
#include <ostream>
#include <vector>

#include "cli/input.h"
#include "cli/messages.h"
#include "cli/output.h"
#include "cli/track_chart.h"
#include "lipvane/formats/ltf.h"
#include "lipvane/formats/read_problem.h"

namespace lipvane::cli {

int Plot(const PlotOptions& options) {
  if (!FolderExists(options.output)) return 1;
  std::vector<InputArgument> arguments = {{options.ltf, FileFormat::kLtf}};
  if (!options.timing.empty()) arguments.push_back({options.timing, FileFormat::kTiming});
  const auto inputs = ReadInputs(arguments);
  if (!inputs) return 1;
  const InputFile& ltf = inputs->front();
  TrackChart chart;
  chart.title = std::filesystem::path(ltf.name).filename().string();
  chart.ticksPerSecond = options.ticksPerSecond;
  ReadProblem problem;
  if (!ReadLtfText(ltf.text, chart.animation, problem)) {
    PrintProblem(ltf, problem);
    return 1;
  }
  const InputFile& timing = inputs->back();
  if (!options.timing.empty() &&
      !speech::ReadTimingText(timing.text, options.timingOptions, chart.timing, problem)) {
    PrintProblem(timing.name, problem);
    return 1;
  }
  return WriteOutput(options.output, [&](std::ostream& out) { WriteTrackChart(out, chart); }) ? 0
                                                                                              : 1;
}

}  // namespace lipvane::cli
