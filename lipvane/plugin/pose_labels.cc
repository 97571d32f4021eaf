#include "lipvane/plugin/pose_labels.h"

#include <array>

namespace lipvane::plugin {
namespace {

// Deliberate: the brows are "Up" here and "Raise" where a mapping gives the names.
constexpr std::array<const char*, 20> kPoseNames = {"Neutral",
                                                    "Eat",
                                                    "Earth",
                                                    "If",
                                                    "Ox",
                                                    "Oat",
                                                    "Wet",
                                                    "Size",
                                                    "Church",
                                                    "Fave",
                                                    "Though",
                                                    "Told",
                                                    "Bump",
                                                    "New",
                                                    "Roar",
                                                    "Cage",
                                                    "Eyebrow_Up_Left",
                                                    "Eyebrow_Up_Right",
                                                    "Blink_Left",
                                                    "Blink_Right"};

template <std::size_t N>
std::string EntryOrNothing(const std::array<const char*, N>& names, int i) {
  if (i < 0 || i >= static_cast<int>(N)) return {};
  return names[static_cast<std::size_t>(i)];
}

}  // namespace

std::string PoseName(int pose) {
  return EntryOrNothing(kPoseNames, pose);
}

std::string PoseName(int pose, const PhonemeMapping& mapping) {
  if (pose == 0) return kPoseNames[0];
  const int targets = mapping.SpeechTargetCount();
  if (pose <= targets) return mapping.GetSpeechTargetName(pose - 1);
  return EntryOrNothing(kExpressionNames, pose - targets - 1);
}

}  // namespace lipvane::plugin
