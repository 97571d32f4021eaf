#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "fuzz/expect.h"
#include "lipvane/speech/shapes_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  std::vector<lipvane::speech::ShapeRow> rows;
  lipvane::ReadProblem problem;
  if (lipvane::speech::ReadShapesText(text, 2, rows, problem)) {
    Expect(!rows.empty());
  } else {
    Expect(!problem.reason.empty() && rows.empty());
  }
  return 0;
}
