#include "cli/samples.h"

#include <cmath>

#include "cli/messages.h"
#include "lipvane/text/numbers.h"

namespace lipvane::cli {

std::optional<std::size_t> SampleRate::CountUpTo(int length, const std::string& fileName) const {
  const double seconds = length / ticksPerSecond;
  if (!(seconds * framesPerSecond < static_cast<double>(kMaxFrames))) {
    PrintError(fileName + ": its length of " + std::to_string(length) + " makes more than " +
               std::to_string(kMaxFrames) + " frames at " + text::ExactReal(framesPerSecond) +
               " a second and " + text::ExactReal(ticksPerSecond) + " ticks a second");
    return std::nullopt;
  }
  // The quotient is the count but for its last bit: what counts is each sample's own time.
  auto count = static_cast<std::size_t>(seconds * framesPerSecond);
  while (count > 0 && TimeOf(count) > length)
    --count;
  while (TimeOf(count + 1) <= length)
    ++count;
  return count + 1;
}

}  // namespace lipvane::cli
