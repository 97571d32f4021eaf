#pragma once

#include <array>
#include <string_view>

/// What is looked for in pose, animation and timing files. docs/check.md says of each rule why it
/// matters and what to do; scripts rely on the identifiers.
namespace lipvane::check {

enum class Severity {
  kError,    ///< the file cannot do its job
  kWarning,  ///< it can, perhaps not as meant
  kNote,
};

struct Rule {
  std::string_view id;
  Severity severity;

  friend constexpr bool operator==(const Rule& a, const Rule& b) { return a.id == b.id; }
};

namespace rule {

// Files of both kinds.
inline constexpr Rule kUnreadable{"unreadable", Severity::kError};
inline constexpr Rule kCountMissing{"count-missing", Severity::kError};
inline constexpr Rule kCountText{"count-text", Severity::kWarning};
inline constexpr Rule kBlankLine{"blank-line", Severity::kError};
inline constexpr Rule kTab{"tab", Severity::kError};
inline constexpr Rule kDoubledBlank{"doubled-blank", Severity::kError};
inline constexpr Rule kNotANumber{"not-a-number", Severity::kError};
inline constexpr Rule kUnreadLines{"unread-lines", Severity::kWarning};

// Bone pose files.
inline constexpr Rule kSpeechTargetCount{"speech-target-count", Severity::kError};
inline constexpr Rule kPhonemeRows{"phoneme-rows", Severity::kError};
inline constexpr Rule kPhonemeWeights{"phoneme-weights", Severity::kWarning};
inline constexpr Rule kBoneCount{"bone-count", Severity::kError};
inline constexpr Rule kHierarchyLine{"hierarchy-line", Severity::kError};
inline constexpr Rule kAssignments{"assignments", Severity::kError};
inline constexpr Rule kBoneLineCount{"bone-line-count", Severity::kError};
inline constexpr Rule kEmptyName{"empty-name", Severity::kError};
inline constexpr Rule kDuplicateBone{"duplicate-bone", Severity::kError};
inline constexpr Rule kDuplicateSpeechTarget{"duplicate-speech-target", Severity::kWarning};
inline constexpr Rule kDuplicatePhoneme{"duplicate-phoneme", Severity::kWarning};
inline constexpr Rule kBoneLineShort{"bone-line-short", Severity::kError};
inline constexpr Rule kBoneLineLong{"bone-line-long", Severity::kWarning};
inline constexpr Rule kRotationLength{"rotation-length", Severity::kWarning};
inline constexpr Rule kSpeechPoses{"speech-poses", Severity::kError};
inline constexpr Rule kExpressionPoses{"expression-poses", Severity::kWarning};
inline constexpr Rule kUnmovedPose{"unmoved-pose", Severity::kWarning};

// Bone pose files against a scene.
inline constexpr Rule kBoneMissing{"bone-missing", Severity::kError};
inline constexpr Rule kBoneNotJoint{"bone-not-joint", Severity::kError};
inline constexpr Rule kBoneRepeated{"bone-repeated", Severity::kWarning};
inline constexpr Rule kRotateOrder{"rotate-order", Severity::kError};
inline constexpr Rule kRotateAxis{"rotate-axis", Severity::kError};
inline constexpr Rule kChannelDriven{"channel-driven", Severity::kWarning};
inline constexpr Rule kChannelLocked{"channel-locked", Severity::kWarning};
inline constexpr Rule kNeutralScale{"neutral-scale", Severity::kWarning};
inline constexpr Rule kNeutralPose{"neutral-pose", Severity::kWarning};
inline constexpr Rule kNoKeys{"no-keys", Severity::kWarning};

// Animation files.
inline constexpr Rule kKeyOrder{"key-order", Severity::kError};
inline constexpr Rule kEqualTimes{"equal-times", Severity::kWarning};
inline constexpr Rule kEqualLastTimes{"equal-last-times", Severity::kError};
inline constexpr Rule kShortKeyLine{"short-key-line", Severity::kError};
inline constexpr Rule kLongKeyLine{"long-key-line", Severity::kError};
inline constexpr Rule kKeyTime{"key-time", Severity::kWarning};
inline constexpr Rule kUnknownTrack{"unknown-track", Severity::kWarning};
inline constexpr Rule kTrackOrder{"track-order", Severity::kWarning};
inline constexpr Rule kDuplicateTrack{"duplicate-track", Severity::kWarning};
inline constexpr Rule kUnreadTracks{"unread-tracks", Severity::kError};

// Timing files.
inline constexpr Rule kUnknownLabel{"unknown-label", Severity::kError};
inline constexpr Rule kWordsTier{"words-tier", Severity::kError};
inline constexpr Rule kUnknownWord{"unknown-word", Severity::kWarning};
inline constexpr Rule kShortClosure{"short-closure", Severity::kWarning};
inline constexpr Rule kShortSound{"short-sound", Severity::kNote};

}  // namespace rule

inline constexpr std::array kAllRules = {rule::kUnreadable,
                                         rule::kCountMissing,
                                         rule::kCountText,
                                         rule::kBlankLine,
                                         rule::kTab,
                                         rule::kDoubledBlank,
                                         rule::kNotANumber,
                                         rule::kSpeechTargetCount,
                                         rule::kPhonemeRows,
                                         rule::kPhonemeWeights,
                                         rule::kBoneCount,
                                         rule::kHierarchyLine,
                                         rule::kAssignments,
                                         rule::kBoneLineCount,
                                         rule::kEmptyName,
                                         rule::kDuplicateBone,
                                         rule::kDuplicateSpeechTarget,
                                         rule::kDuplicatePhoneme,
                                         rule::kBoneLineShort,
                                         rule::kBoneLineLong,
                                         rule::kRotationLength,
                                         rule::kSpeechPoses,
                                         rule::kExpressionPoses,
                                         rule::kUnmovedPose,
                                         rule::kBoneMissing,
                                         rule::kBoneNotJoint,
                                         rule::kBoneRepeated,
                                         rule::kRotateOrder,
                                         rule::kRotateAxis,
                                         rule::kChannelDriven,
                                         rule::kChannelLocked,
                                         rule::kNeutralScale,
                                         rule::kNeutralPose,
                                         rule::kNoKeys,
                                         rule::kKeyOrder,
                                         rule::kEqualTimes,
                                         rule::kEqualLastTimes,
                                         rule::kShortKeyLine,
                                         rule::kLongKeyLine,
                                         rule::kKeyTime,
                                         rule::kUnknownTrack,
                                         rule::kTrackOrder,
                                         rule::kDuplicateTrack,
                                         rule::kUnreadLines,
                                         rule::kUnreadTracks,
                                         rule::kUnknownLabel,
                                         rule::kWordsTier,
                                         rule::kUnknownWord,
                                         rule::kShortClosure,
                                         rule::kShortSound};

/// "error", "warning" or "note".
constexpr const char* SeverityName(Severity severity) {
  switch (severity) {
    case Severity::kError:
      break;
    case Severity::kWarning:
      return "warning";
    case Severity::kNote:
      return "note";
  }
  return "error";
}

}  // namespace lipvane::check
