#include <array>
#include <cmath>
#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>

#include "lipvane/formats/lbp.h"
#include "lipvane/text/numbers.h"
#include "lipvane/text/six_digits.h"

namespace lipvane {
namespace {

/// Lines reach the disk as they are made, so that an export that breaks off shows how far it came.
void WriteLine(std::ostream& out, std::string line) {
  line += '\n';
  out.write(line.data(), static_cast<std::streamsize>(line.size()));
  out.flush();
}

void WriteSection(std::ostream& out, const char* title, const std::string& line) {
  WriteLine(out, title);
  WriteLine(out, line);
  WriteLbpBlankLine(out);
}

std::string JoinedNames(const PhonemeMapping& mapping) {
  std::string line;
  for (int t = 0; t < mapping.SpeechTargetCount(); ++t) {
    if (t > 0) line += ' ';
    line += mapping.GetSpeechTargetName(t);
  }
  return line;
}

bool WriteMappingRows(std::ostream& out, PhonemeMapping& mapping) {
  for (int p = 0; p < mapping.PhonemeCount(); ++p) {
    std::string line = mapping.GetPhonemeName(p);
    for (int t = 0; t < mapping.SpeechTargetCount(); ++t) {
      float weight = 0.0F;
      if (!mapping.GetWeight(t, p, weight)) return false;
      line += ' ';
      text::AppendReal(line, static_cast<double>(weight));
    }
    WriteLine(out, line);
  }
  return true;
}

/// The numbers of a bone, of which an export has so many that they are written in place.
class BoneLine {
 public:
  void Append(double value) {
    end_ = text::WriteSixDigits(end_, value);
    *end_++ = ' ';
  }

  void Write(std::ostream& out) {
    end_[-1] = '\n';
    out.write(text_.data(), end_ - text_.data());
    out.flush();
  }

 private:
  static constexpr std::size_t kMostNumbers = 26;
  std::array<char, kMostNumbers*(text::kRoomForSixDigits + 1)> text_;
  char* end_ = text_.data();
};

}  // namespace

std::array<double, 4> QuaternionFromMatrix(const std::array<double, 16>& matrix) {
  const auto m = [&](std::size_t row, std::size_t column) { return matrix[row * 4 + column]; };
  const double trace = m(0, 0) + m(1, 1) + m(2, 2);
  if (trace > 0.0) {
    const double root = std::sqrt(trace + 1.0);
    const double s = 0.5 / root;
    return {0.5 * root, (m(1, 2) - m(2, 1)) * s, (m(2, 0) - m(0, 2)) * s, (m(0, 1) - m(1, 0)) * s};
  }

  // The axis of the largest diagonal element keeps the root away from 0.
  std::size_t i = 0;
  if (m(1, 1) > m(0, 0)) i = 1;
  if (m(2, 2) > m(i, i)) i = 2;
  const std::size_t j = (i + 1) % 3;
  const std::size_t k = (j + 1) % 3;
  const double root = std::sqrt(m(i, i) - (m(j, j) + m(k, k)) + 1.0);
  const double s = root != 0.0 ? 0.5 / root : root;
  std::array<double, 4> quaternion{};
  quaternion[0] = (m(j, k) - m(k, j)) * s;
  quaternion[1 + i] = 0.5 * root;
  quaternion[1 + j] = (m(j, i) + m(i, j)) * s;
  quaternion[1 + k] = (m(k, i) + m(i, k)) * s;
  return quaternion;
}

bool WriteLbpHeader(std::ostream& out, const LbpHeader& header) {
  WriteSection(out, "// Tamsk Entertainment .LBP Version", std::to_string(LBP_FORMAT_VERSION));

  PhonemeMapping* const mapping = header.mapping;
  const int targetCount = mapping != nullptr ? mapping->SpeechTargetCount()
                                             : static_cast<int>(kSpeechTargetNames.size());
  WriteSection(out, "// Number of Speech Targets", std::to_string(targetCount));
  WriteSection(out, "// Speech Target Names",
               mapping != nullptr ? JoinedNames(*mapping) : std::string(kSpeechTargetNamesLine));

  WriteLine(out, "// Phoneme to Speech Target Mapping");
  if (mapping == nullptr) {
    WriteLine(out, DefaultPhonemeTable);
  } else if (!WriteMappingRows(out, *mapping)) {
    return false;
  }
  WriteLbpBlankLine(out);

  WriteSection(out, "// Number of Bones", std::to_string(header.boneCount));

  WriteLine(out, "// Bone Heirarchy Information");  // deliberate: the format spells it so
  for (const LbpHierarchyLine& line : header.hierarchy) {
    WriteLine(out, line.bone + " -> " + line.parent);
  }
  if (!header.hierarchyComplete) return true;
  WriteLbpBlankLine(out);

  WriteLine(out, "// Individual Bone Assignments");
  WriteLine(out, "head_bone=" + header.headBoneName);
  WriteLine(out, "left_eye_bone=undefined");
  WriteLine(out, "right_eye_bone=undefined");
  WriteLbpBlankLine(out);
  return true;
}

void WriteLbpPoseCount(std::ostream& out, int count) {
  WriteSection(out, "// Number of Bone Poses", std::to_string(count));
}

void WriteLbpPoseLabel(std::ostream& out, int number, std::string_view name) {
  WriteLine(out, "// Bone Pose " + std::to_string(number) + ": " + std::string(name));
}

void WritePoseBoneLines(std::ostream& out, const std::vector<LbpBone>& bones) {
  for (const LbpBone& bone : bones) {
    BoneLine line;
    for (const double element : bone.matrix)
      line.Append(element);
    for (const double component : bone.translation)
      line.Append(component);
    for (const double component : bone.scale)
      line.Append(component);
    const auto [w, x, y, z] = QuaternionFromMatrix(bone.matrix);
    line.Append(-w);  // deliberate: the format has w negated
    line.Append(x);
    line.Append(y);
    line.Append(z);
    line.Write(out);
  }
}

void WriteLbpBlankLine(std::ostream& out) {
  WriteLine(out, {});
}

}  // namespace lipvane
