#include "cli/plot.h"

#include <filesystem>
#include <ostream>

#include "cli/messages.h"
#include "cli/output.h"
#include "cli/track_chart.h"
#include "lipvane/formats/ltf.h"
#include "lipvane/formats/read_problem.h"

namespace lipvane::cli {

int Plot(const PlotOptions& options) {
  if (!FolderExists(options.output)) return 1;
  TrackChart chart;
  chart.title = std::filesystem::path(options.ltf).filename().string();
  chart.ticksPerSecond = options.ticksPerSecond;
  ReadProblem problem;
  if (!LoadLtfFile(options.ltf, chart.animation, problem)) {
    PrintProblem(options.ltf, problem);
    return 1;
  }
  if (!options.timing.empty() &&
      !speech::ReadTiming(options.timing, options.timingOptions, chart.timing, problem)) {
    PrintProblem(options.timing, problem);
    return 1;
  }
  return WriteOutput(options.output, [&](std::ostream& out) { WriteTrackChart(out, chart); }) ? 0
                                                                                              : 1;
}

}  // namespace lipvane::cli
