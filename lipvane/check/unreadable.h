#pragma once

#include <string_view>

#include "lipvane/check/finding.h"
#include "lipvane/formats/read_problem.h"

namespace lipvane::check {

/// Adds why the reader refuses the text; a byte order mark at its start, which nobody sees, is
/// mentioned.
void AddUnreadable(std::string_view text, const ReadProblem& problem, Recorder& recorder);

}  // namespace lipvane::check
