#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "lipvane/check/rules.h"

namespace lipvane::check {

/// Something about a file that its reader accepts in silence, or why it refuses.
struct Finding {
  std::string file;
  std::size_t line = 1;  ///< from 1
  Rule rule = rule::kUnreadable;
  std::string text;  ///< begins small, no full stop
};

/// Orders those from place `first` on by line; of one line they stay as they were found.
inline void SortByLine(std::vector<Finding>& findings, std::size_t first) {
  std::stable_sort(findings.begin() + static_cast<std::ptrdiff_t>(first), findings.end(),
                   [](const Finding& a, const Finding& b) { return a.line < b.line; });
}

/// Adds findings of one file.
class Recorder {
 public:
  /// The list must live as long.
  Recorder(std::string file, std::vector<Finding>& findings)
      : file_(std::move(file)), findings_(findings) {}

  void Add(std::size_t line, const Rule& rule, std::string text) {
    findings_.push_back({file_, line, rule, std::move(text)});
  }

 private:
  std::string file_;
  std::vector<Finding>& findings_;
};

}  // namespace lipvane::check
