#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "lipvane/check/rules.h"

namespace lipvane::check {

/// Something about a file that its reader accepts in silence, or why it refuses.
struct Finding {
  std::string file;
  std::size_t line = 1;  ///< from 1
  Rule rule = rule::kUnreadable;
  std::string text;  ///< begins small, no full stop; may hold any bytes of the file
};

/// Orders those from place `first` on by line; of one line they stay as they were found. What sums
/// up others comes last.
void SortByLine(std::vector<Finding>& findings, std::size_t first);

/// So many findings of one rule are kept of a file, and one more that counts the rest: a file of
/// millions of bad lines must not take gigabytes, and nobody reads them.
inline constexpr std::size_t kMostOfARule = 1000;

/// Adds findings of one file.
class Recorder {
 public:
  /// The list must live as long, and nobody else may change it in between.
  Recorder(std::string file, std::vector<Finding>& findings, std::size_t most = kMostOfARule);

  void Add(std::size_t line, const Rule& rule, const std::string& text);

 private:
  struct Tally {
    std::size_t count = 0;
    std::size_t rest = 0;  // the place of the finding that counts those beyond the most
  };

  std::string file_;
  std::vector<Finding>& findings_;
  std::size_t most_;
  std::map<std::string_view, Tally> tallies_;
};

}  // namespace lipvane::check
