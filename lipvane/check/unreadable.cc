#include "lipvane/check/unreadable.h"

#include <algorithm>
#include <cstddef>

namespace lipvane::check {

void AddUnreadable(std::string_view text, const ReadProblem& problem, Recorder& recorder) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  const bool hasMark = text.substr(0, kByteOrderMark.size()) == kByteOrderMark;
  recorder.Add(static_cast<std::size_t>(std::max(problem.line, 1)), rule::kUnreadable,
               problem.reason + (hasMark ? " (the file begins with a byte order mark)" : ""));
}

}  // namespace lipvane::check
