#include "lipvane/check/unreadable.h"

#include <algorithm>
#include <cstddef>

#include "lipvane/text/utf8.h"

namespace lipvane::check {

void AddUnreadable(std::string_view text, const ReadProblem& problem, Recorder& recorder) {
  recorder.Add(static_cast<std::size_t>(std::max(problem.line, 1)), rule::kUnreadable,
               problem.reason + text::ByteOrderMarkHint(text));
}

}  // namespace lipvane::check
