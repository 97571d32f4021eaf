#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/expect.h"
#include "lipvane/check/lbp_check.h"
#include "lipvane/engine/bone_pose.h"
#include "lipvane/engine/exception.h"
#include "lipvane/formats/lbp.h"
#include "lipvane/formats/phonemes.h"

namespace {

/// Whether the checker calls it an error.
bool IsFaulty(std::string_view text) {
  std::vector<lipvane::check::Finding> findings;
  lipvane::check::CheckLbp("a.lbp", text, findings);
  return std::any_of(findings.begin(), findings.end(), [](const auto& finding) {
    return finding.rule.severity == lipvane::check::Severity::kError;
  });
}

void ReadPoses(std::string_view text) {
  lipvane::TBonePoseInfo info;
  lipvane::PhonemeMapping mapping;
  lipvane::ReadProblem problem;
  const bool isFaulty = IsFaulty(text);
  if (!lipvane::ReadLbpText(text, info, mapping, problem)) {
    Expect(isFaulty);
    Expect(!problem.reason.empty() && problem.line >= 0);
    Expect(info.boneNames.empty() && info.poses.empty() && mapping.speechTargets.empty());
    return;
  }
  // What was accepted can be blended, unless it is so large that doing so would only cost time.
  if (info.boneNames.size() * info.poses.size() < 100000) {
    std::vector<double> weights(info.poses.size(), 0.5);
    info.Blend(weights);
    Expect(info.blendedBones.size() >= info.boneNames.size());
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  try {
    ReadPoses(text);
  } catch (const lipvane::TamskException&) {
    // The engine may refuse what the file asks of it.
  }
  return 0;
}
