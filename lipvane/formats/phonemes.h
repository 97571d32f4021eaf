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
inline constexpr char DefaultPhonemeTable[] =
    // clang-format off
    "Iy 0.85 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00\n"
    "Ih 0.00 0.00 0.85 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00\n"
    "Eh 0.00 0.00 0.85 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00\n"
    "Ey 0.00 0.00 0.85 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00\n"
    "Ae 0.00 0.00 0.85 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00\n"
    "Aa 0.00 0.00 0.00 0.85 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00\n"
    "Aw 0.00 0.00 0.85 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00\n"
    "Ay 0.00 0.00 0.85 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00\n"
    "Ah 0.00 0.00 0.85 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00\n"
    "Ao 0.00 0.00 0.00 0.85 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00\n"
    "Oy 0.00 0.00 0.00 0.00 0.85 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00\n"
    "Ow 0.00 0.00 0.00 0.00 0.85 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00\n"
    "Uh 0.00 0.00 0.00 0.00 0.85 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00\n"
    "Uw 0.00 0.00 0.00 0.00 0.85 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00\n"
    "Er 0.00 0.85 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00\n"
    "Ax 0.00 0.00 0.85 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00\n"
    "S 0.00 0.00 0.00 0.00 0.00 0.00 0.85 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00\n"
    "Sh 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.85 0.00 0.00 0.00 0.00 0.00 0.00 0.00\n"
    "Z 0.00 0.00 0.00 0.00 0.00 0.00 0.85 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00\n"
    "Zh 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.85 0.00 0.00 0.00 0.00 0.00 0.00 0.00\n"
    "F 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.70 0.00 0.00 0.00 0.00 0.00 0.00\n"
    "Th 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.85 0.00 0.00 0.00 0.00 0.00\n"
    "V 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.70 0.00 0.00 0.00 0.00 0.00 0.00\n"
    "Dh 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.85 0.00 0.00 0.00 0.00 0.00\n"
    "M 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.85 0.00 0.00 0.00\n"
    "N 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.85 0.00 0.00\n"
    "Ng 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.85 0.00 0.00\n"
    "L 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.85 0.00 0.00 0.00 0.00\n"
    "R 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.85 0.00\n"
    "W 0.00 0.00 0.00 0.00 0.00 0.85 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00\n"
    "Y 0.00 0.00 0.00 0.00 0.00 0.85 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00\n"
    "Hh 0.00 0.00 0.85 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00\n"
    "B 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.85 0.00 0.00 0.00\n"
    "D 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.85 0.00 0.00 0.00 0.00\n"
    "Jh 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.85 0.00 0.00 0.00 0.00 0.00 0.00 0.00\n"
    "G 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.20\n"
    "P 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.85 0.00 0.00 0.00\n"
    "T 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.85 0.00 0.00 0.00 0.00\n"
    "K 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.20\n"
    "Ch 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.85 0.00 0.00 0.00 0.00 0.00 0.00 0.00\n"
    "Sil 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00\n"
    "ShortSil 0.00 0.00 0.20 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00\n"
    "Flap 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0.50 0.00 0.00 0.00 0.00";
// clang-format on

/// What a mouth does for each phoneme: a weight for every speech target.
struct PhonemeMapping {
  std::vector<std::string> speechTargets;
  std::vector<std::string> phonemes;
  /// weights[p][t] of phoneme p for speech target t. Rows, and the list of them, may be shorter
  /// than the names; what is missing counts as 0.
  std::vector<std::vector<float>> weights;

  int SpeechTargetCount() const { return static_cast<int>(speechTargets.size()); }
  int PhonemeCount() const { return static_cast<int>(phonemes.size()); }

  /// Appends a name.
  void AddSpeechTarget(const std::string& name);
  /// Appends a name and its weights, one a speech target.
  void AddPhoneme(const std::string& name, const std::vector<float>& row);

  /// The name at a position; empty when there is no such position.
  std::string GetSpeechTargetName(int i) const;
  std::string GetPhonemeName(int i) const;

  /// The weight of a phoneme for a speech target; one that was never given is made, as 0. False,
  /// with `weight` left alone, when there is no such speech target or phoneme.
  bool GetWeight(int target, int phoneme, float& weight);

  /// Puts the table into a phoneme mapping file of LIPSinc (".map"), in place of one that is there.
  /// Deliberate: a file that cannot be written is passed over in silence; see LipsincMapText.
  void WriteLipsincMap(const std::string& fileName, const std::string& characterName);
  /// The bytes of that file. Weights that were never given are made, as by GetWeight.
  std::string LipsincMapText(const std::string& characterName);
};

/// The pose after the last speech target's, the first of the expressions': pose 0 is neutral.
inline int FirstExpressionPose(const PhonemeMapping& mapping) {
  return 1 + mapping.SpeechTargetCount();
}

}  // namespace lipvane
