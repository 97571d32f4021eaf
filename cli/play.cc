#include "cli/play.h"

#include <algorithm>
#include <cstddef>

#include "cli/frame_writer.h"
#include "cli/output.h"
#include "cli/playback.h"
#include "cli/progress.h"

namespace lipvane::cli {

int Play(PlayOptions options) {
  if (!FolderExists(options.output)) return 1;
  const auto inputs =
      ReadInputs({{options.lbp, FileFormat::kLbp}, {options.ltf, FileFormat::kLtf}});
  if (!inputs) return 1;
  const InputFile& lbp = inputs->front();
  const InputFile& ltf = inputs->back();
  Playback playback;
  if (!playback.Load(lbp, ltf, options.force)) return 1;

  std::vector<double>& times = options.times;
  std::sort(times.begin(), times.end());
  std::size_t count = times.size();
  if (times.empty()) {
    const auto upToLength = options.rate.CountUpTo(playback.Animation().length, ltf.name);
    if (!upToLength) return 1;
    count = *upToLength;
  }

  const auto writer = NewFrameWriter(options.output);
  Progress progress;
  const bool showsProgress = options.output != kStandardOutput || !StandardOutputIsTerminal();
  const bool written = WriteOutput(options.output, [&](std::ostream& out) {
    writer->Begin(out, playback, options.rate.ticksPerSecond);
    for (std::size_t i = 0; i < count && out; ++i) {
      playback.Play(times.empty() ? options.rate.TimeOf(i) : times[i]);
      writer->WriteFrame(out, playback);
      if (showsProgress) progress.Show("Playing", i, count);
    }
    writer->End(out);
    progress.Erase();
  });
  return written ? 0 : 1;
}

}  // namespace lipvane::cli
