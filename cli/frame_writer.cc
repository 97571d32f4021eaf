#include "cli/frame_writer.h"

#include "cli/file_format.h"

namespace lipvane::cli {

std::unique_ptr<FrameWriter> NewFrameWriter(const std::string& fileName) {
  return Ending(fileName) == ".csv" ? NewCsvFrameWriter() : NewJsonFrameWriter();
}

}  // namespace lipvane::cli
