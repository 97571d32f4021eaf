#pragma once

#include <array>
#include <string>
#include <vector>

namespace lipvane {

/// The mouth shapes of a new rig, in the order of their poses and weights.
inline constexpr std::array<const char*, 15> kSpeechTargetNames = {
    "Eat",  "Earth",  "If",   "Ox",   "Oat", "Wet",  "Size", "Church",
    "Fave", "Though", "Told", "Bump", "New", "Roar", "Cage"};

/// The same names as the line of a pose file.
inline constexpr char kSpeechTargetNamesLine[] =
    "Eat Earth If Ox Oat Wet Size Church Fave Though Told Bump New Roar Cage";

/// The poses that follow those of the speech targets, in order.
inline constexpr std::array<const char*, 4> kExpressionNames = {
    "Eyebrow_Raise_Left", "Eyebrow_Raise_Right", "Blink_Left", "Blink_Right"};

/// How many phonemes there are: the rows of `DefaultPhonemeTable` and of every pose file.
inline constexpr int kPhonemeCount = 43;

/// The weights of a new rig as the text of a pose file: one row a phoneme, its name and a weight
/// for each of the fifteen speech targets, with two decimals, between single blanks. Line feeds
/// stand between the rows, none after the last.
extern const char DefaultPhonemeTable[];

/// How strongly each phoneme pulls each speech target.
struct PhonemeMapping {
  std::vector<std::string> speechTargets;
  std::vector<std::string> phonemes;
  /// weights[p][t] of phoneme p for speech target t. Rows, and the list of them, may be shorter
  /// than the names; what is missing counts as 0.
  std::vector<std::vector<float>> weights;

  int SpeechTargetCount() const { return static_cast<int>(speechTargets.size()); }
  int PhonemeCount() const { return static_cast<int>(phonemes.size()); }

  void AddSpeechTarget(const std::string& name);
  void AddPhoneme(const std::string& name, const std::vector<float>& row);

  /// The name at a position; empty when there is no such position.
  std::string GetSpeechTargetName(int i) const;
  std::string GetPhonemeName(int i) const;

  /// The weight of a phoneme for a speech target; one that was never given is made, as 0. False,
  /// with `weight` left alone, when there is no such speech target or phoneme.
  bool GetWeight(int target, int phoneme, float& weight);
};

}  // namespace lipvane
