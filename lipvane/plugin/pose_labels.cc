#include "lipvane/plugin/pose_labels.h"

#include <array>

namespace lipvane::plugin {
namespace {

constexpr char kNeutral[] = "Neutral";

// Deliberate: the brows are "Up" here and "Raise" where a mapping gives the names.
constexpr std::array<const char*, kExpressionNames.size()> kNewRigExpressionNames = {
    "Eyebrow_Up_Left", "Eyebrow_Up_Right", "Blink_Left", "Blink_Right"};

template <std::size_t N>
std::string EntryOrNothing(const std::array<const char*, N>& names, int i) {
  if (i < 0 || i >= static_cast<int>(N)) return {};
  return names[static_cast<std::size_t>(i)];
}

}  // namespace

std::string PoseName(int pose) {
  constexpr int kTargets = static_cast<int>(kSpeechTargetNames.size());
  if (pose == 0) return kNeutral;
  if (pose <= kTargets) return EntryOrNothing(kSpeechTargetNames, pose - 1);
  return EntryOrNothing(kNewRigExpressionNames, pose - kTargets - 1);
}

std::string PoseName(int pose, const PhonemeMapping& mapping) {
  const int targets = mapping.SpeechTargetCount();
  if (pose == 0) return kNeutral;
  if (pose <= targets) return mapping.GetSpeechTargetName(pose - 1);
  return EntryOrNothing(kExpressionNames, pose - targets - 1);
}

}  // namespace lipvane::plugin
