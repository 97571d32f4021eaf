#include "lipvane/check/finding.h"

#include <algorithm>
#include <utility>

namespace lipvane::check {
void SortByLine(std::vector<Finding>& findings, std::size_t first) {
  std::stable_sort(findings.begin() + static_cast<std::ptrdiff_t>(first), findings.end(),
                   [](const Finding& a, const Finding& b) {
                     const bool isSum = a.rule == rule::kNoKeys;
                     const bool isOtherSum = b.rule == rule::kNoKeys;
                     return isSum == isOtherSum ? a.line < b.line : isOtherSum;
                   });
}

Recorder::Recorder(std::string file, std::vector<Finding>& findings, std::size_t most)
    : file_(std::move(file)), findings_(findings), most_(most) {}

void Recorder::Add(std::size_t line, const Rule& rule, const std::string& text) {
  Tally& tally = tallies_[rule.id];
  ++tally.count;
  if (tally.count > most_ && tally.count - most_ > 1) {
    findings_[tally.rest].text = std::to_string(tally.count - most_) +
                                 " more findings of this rule, up to line " + std::to_string(line);
    return;
  }
  tally.rest = findings_.size();
  findings_.push_back({file_, line, rule, text});
}

}  // namespace lipvane::check
