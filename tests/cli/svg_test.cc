#include "cli/svg.h"

#include <gtest/gtest.h>

namespace lipvane::test {
namespace {

TEST(SvgTest, CoordinatesHaveTwoDecimalsAtMost) {
  std::string text;
  for (const double value : {0.0, -0.004, 100.0, 2.5, -0.456, 20000.126}) {
    cli::AppendCoordinate(text, value);
    text += ' ';
  }
  EXPECT_EQ(text, "0 0 100 2.5 -0.46 20000.13 ");
}

TEST(SvgTest, TextIsCutBetweenCharacters) {
  const std::string text = "\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9";
  EXPECT_EQ(cli::TextWidth(text, 10.0), 40.0);
  EXPECT_EQ(cli::FittedText(text, 10.0, 40.0), text);
  EXPECT_EQ(cli::FittedText(text, 10.0, 39.0), "\xC3\xA9\xC3\xA9\xE2\x80\xA6");
  EXPECT_EQ(cli::FittedText(text, 10.0, 5.0), "\xE2\x80\xA6");
}

}  // namespace
}  // namespace lipvane::test
