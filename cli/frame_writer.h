#pragma once

#include <iosfwd>
#include <memory>
#include <string>

#include "cli/playback.h"

namespace lipvane::cli {

/// Writes played frames in one format, one after the other.
class FrameWriter {
 public:
  virtual ~FrameWriter() = default;
  virtual void Begin(std::ostream& out, Playback& playback, double ticksPerSecond) = 0;
  virtual void WriteFrame(std::ostream& out, Playback& playback) = 0;
  virtual void End(std::ostream& out) = 0;
};

/// The writer for a file of this name: CSV when it ends so, in any case, else JSON.
std::unique_ptr<FrameWriter> NewFrameWriter(const std::string& fileName);

std::unique_ptr<FrameWriter> NewCsvFrameWriter();
std::unique_ptr<FrameWriter> NewJsonFrameWriter();

}  // namespace lipvane::cli
