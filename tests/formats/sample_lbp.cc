#include "tests/formats/sample_lbp.h"

#include <gtest/gtest.h>

#include <cstddef>

namespace lipvane::test {
namespace {

std::string Weight(int percent) {
  return "0." + std::to_string(percent / 10) + std::to_string(percent % 10);
}

std::string BoneLine(int pose, int bone) {
  return "1 0 0 0 0 1 0 0 0 0 1 0 7 8 9 1 " + std::to_string(pose) + " " + std::to_string(bone) +
         " 0.5 1 1 1 1 2 3 4\n";
}

}  // namespace

std::string SampleLbp() {
  std::string text =
      "// Version\n2\n\n// Number of Speech Targets\n2\n\n// Names\nEat Ox\n\n// Mapping\n";
  for (int p = 0; p < 43; ++p)
    text += "P" + std::to_string(p) + " " + Weight(p) + " 0.50\n";
  text +=
      "\n// Number of Bones\n2 // bones\n\n// Hierarchy\njaw -> head\nhead -> world\n\n"
      "// Assignments\nhead_bone=head\nleft_eye_bone=undefined\nright_eye_bone=undefined\n\n"
      "// Number of Bone Poses\n2 // poses\n\n";
  for (int p = 0; p < 2; ++p) {
    text +=
        "// Bone Pose " + std::to_string(p) + ": Name\n" + BoneLine(p, 0) + BoneLine(p, 1) + "\n";
  }
  return text;
}

std::string SampleLbp(const std::vector<std::pair<std::string, std::string>>& replacements) {
  std::string text = SampleLbp();
  for (const auto& [from, to] : replacements) {
    const std::size_t place = text.find(from);
    EXPECT_NE(place, std::string::npos) << from;
    EXPECT_EQ(text.find(from, place + 1), std::string::npos) << from;
    text.replace(place, from.size(), to);
  }
  return text;
}

}  // namespace lipvane::test
