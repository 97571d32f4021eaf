#include "tests/formats/sample_lbp.h"

#include <gtest/gtest.h>

#include <cstddef>

namespace lipvane::test {

std::string SampleLbp() {
  std::string text =
      "// Version\n2\n\n// Number of Speech Targets\n2\n\n// Names\nEat Ox\n\n// Mapping\n";
  for (int p = 0; p < 43; ++p) {
    const std::string number = std::to_string(p);
    text += "P" + number + (p < 10 ? " 0.0" : " 0.") + number + " 0.50\n";
  }
  text +=
      "\n// Number of Bones\n2 // bones\n\n// Hierarchy\njaw -> head\nhead -> world\n\n"
      "// Assignments\nhead_bone=head\nleft_eye_bone=undefined\nright_eye_bone=undefined\n\n"
      "// Number of Bone Poses\n2 // poses\n\n";
  for (const std::string pose : {"0", "1"}) {
    text += "// Bone Pose " + pose + ": Name\n";
    for (const std::string bone : {"0", "1"}) {
      text += "1 0 0 0 0 1 0 0 0 0 1 0 7 8 9 1 " + pose + " " + bone + " 0.5 1 1 1 1 2 3 4\n";
    }
    text += "\n";
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
