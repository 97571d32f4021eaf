#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/expect.h"
#include "lipvane/check/ltf_check.h"
#include "lipvane/engine/animation.h"
#include "lipvane/engine/exception.h"
#include "lipvane/formats/ltf.h"

namespace {

/// Whether the checker calls it an error.
bool IsFaulty(std::string_view text) {
  std::vector<lipvane::check::Finding> findings;
  lipvane::check::CheckLtf("a.ltf", text, {{"Eat"}, {"Blink_Left"}}, findings);
  return std::any_of(findings.begin(), findings.end(), [](const auto& finding) {
    return finding.rule.severity == lipvane::check::Severity::kError;
  });
}

void ExpectSame(const std::vector<lipvane::TAnimationTrack>& a,
                const std::vector<lipvane::TAnimationTrack>& b) {
  Expect(a.size() == b.size());
  for (std::size_t i = 0; i < a.size(); ++i) {
    Expect(a[i].name == b[i].name && a[i].KeyCount() == b[i].KeyCount());
    for (int k = 0; k < a[i].KeyCount(); ++k) {
      Expect(a[i].GetKey(k)->time == b[i].GetKey(k)->time);
      Expect(a[i].GetKey(k)->value == b[i].GetKey(k)->value);
    }
  }
}

void Read(std::string_view text) {
  lipvane::TAnimation animation;
  lipvane::ReadProblem problem;
  if (!lipvane::ReadLtfText(text, animation, problem)) {
    Expect(!problem.reason.empty() && problem.line >= 0);
    Expect(IsFaulty(text));
    return;
  }
  IsFaulty(text);
  std::vector<double> weights;
  animation.ValuesAtTime(animation.length * 0.5, weights);
  std::string written;
  std::string reason;
  if (!lipvane::LtfText(animation, {}, written, reason)) return;  // a value is infinite
  lipvane::TAnimation again;
  Expect(lipvane::ReadLtfText(written, again, problem));
  ExpectSame(animation.tracks, again.tracks);
  ExpectSame(animation.expressionTracks, again.expressionTracks);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  try {
    Read(text);
  } catch (const lipvane::TamskException&) {
    // The engine may refuse what the file asks of it.
  }
  return 0;
}
