#include "lipvane/formats/expected_lines.h"

#include <algorithm>
#include <cstddef>
#include <limits>

#include "lipvane/text/numbers.h"

namespace lipvane {

bool ExpectedLines::Next(const char* expected, std::string_view& line) {
  if (lines_.Next(line)) return true;
  return Refuse(std::string("the file ends where ") + expected + " is expected");
}

bool ExpectedLines::NextCount(const char* expected, int& count) {
  std::string_view line;
  if (!Next(expected, line)) return false;
  count = text::IntegerPrefix(TokenCursor(line, " ").Next());
  return true;
}

bool ExpectedLines::Refuse(const std::string& reason) {
  constexpr auto kLastLine = static_cast<std::size_t>(std::numeric_limits<int>::max());
  problem_.line = static_cast<int>(std::min(lines_.LineNumber(), kLastLine));
  problem_.reason = reason;
  return false;
}

}  // namespace lipvane
