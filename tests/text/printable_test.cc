#include "lipvane/text/printable.h"

#include <gtest/gtest.h>

namespace lipvane::text {
namespace {

TEST(Printable, LeavesNothingThatATerminalWouldObey) {
  const std::string text("a\x1B[2J\t\x7F\xC3\xA4\r\n\0b", 13);
  EXPECT_EQ(Printable(text), "a?[2J\\t?\xC3\xA4?\n?b");
  EXPECT_EQ(PrintableLine(text), "a?[2J\\t?\xC3\xA4?\\n?b");
}

TEST(Quoted, IsCutBetweenCharacters) {
  EXPECT_EQ(Quoted("jaw"), "\"jaw\"");
  EXPECT_EQ(Quoted("jaw", 3), "\"jaw\"");
  EXPECT_EQ(Quoted("j\xC3\xA4w", 2), "\"j...\"");
  EXPECT_EQ(Quoted("j\xC3\xA4w", 3), "\"j\xC3\xA4...\"");
  EXPECT_EQ(Quoted("\xA4\xA4\xA4", 2), "\"...\"");
  EXPECT_EQ(QuotedLine("a\n" + std::string(99, 'b')), "\"a\\n" + std::string(57, 'b') + "...\"");
}

}  // namespace
}  // namespace lipvane::text
