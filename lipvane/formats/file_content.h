#pragma once

#include <string>

#include "lipvane/formats/read_problem.h"
#include "lipvane/text/file.h"

namespace lipvane {

/// Hands a file's content to a reader of texts, and answers what that answers. False, with the
/// problem set, when the file cannot be read.
template <typename ReadText>
bool ReadContent(const std::string& fileName, ReadProblem& problem, const ReadText& readText) {
  std::string content;
  problem.line = 0;
  if (!text::ReadFile(fileName, content, problem.reason)) return false;
  return readText(content);
}

}  // namespace lipvane
