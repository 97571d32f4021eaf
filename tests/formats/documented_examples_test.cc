// The whole files that docs/formats.md shows are read, and written, as it says.

#include <gtest/gtest.h>

#include <string>

#include "lipvane/formats/lbp.h"
#include "lipvane/formats/ltf.h"
#include "tests/support/temporary_folder.h"

namespace lipvane {
namespace {

/// The first block of the document that is fenced with this word.
std::string Example(const std::string& word) {
  const std::string document = test::FileContent(LIPVANE_SOURCE_DIR "/docs/formats.md");
  const std::size_t begin = document.find("\n```" + word + "\n") + 5 + word.size();
  return document.substr(begin, document.find("```", begin) - begin);
}

TEST(DocumentedExamples, AreWhatTheFormatsReadAndWrite) {
  TBonePoseInfo rig;
  PhonemeMapping mapping;
  ReadProblem problem;
  ASSERT_TRUE(ReadLbpText(Example("lbp"), rig, mapping, problem)) << problem.reason;
  EXPECT_EQ(rig.boneNames, (std::vector<std::string>{"jaw", "head"}));
  EXPECT_EQ(rig.poses.size(), 6U);
  EXPECT_EQ(mapping.phonemes.back(), "Flap");

  TAnimation animation;
  ASSERT_TRUE(ReadLtfText(Example("ltf"), animation, problem)) << problem.reason;
  std::string written;
  ASSERT_TRUE(LtfText(animation, {"Thirteen times Eat, then a blink. Times are in milliseconds."},
                      written, problem.reason));
  EXPECT_EQ(written, Example("ltf"));

  std::string map;
  for (const char c : Example("map"))
    map += c == '\n' ? std::string("\r\r\n") : std::string(1, c);
  EXPECT_EQ(mapping.LipsincMapText("Face"), map);
}

}  // namespace
}  // namespace lipvane
