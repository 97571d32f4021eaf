#include "lipvane/formats/data_lines.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace lipvane {
namespace {

using Tokens = std::vector<std::string_view>;

struct Taken {
  std::string line;
  std::string remaining;
  std::size_t passed;

  bool operator==(const Taken& other) const {
    return line == other.line && remaining == other.remaining && passed == other.passed;
  }
};

void PrintTo(const Taken& taken, std::ostream* out) {
  *out << '[' << taken.line << "] [" << taken.remaining << "] " << taken.passed;
}

Taken Take(std::string_view text) {
  std::string_view line = "before";
  const std::size_t passed = NextDataLine(text, line);
  return {std::string(line), std::string(text), passed};
}

TEST(NextDataLine, EndsAtALineFeedOrAComment) {
  EXPECT_EQ(Take("a b\nc"), (Taken{"a b", "c", 1}));
  EXPECT_EQ(Take("15 // fifteen // 16\nc"), (Taken{"15 ", "c", 1}));
  EXPECT_EQ(Take("// title\nc"), (Taken{"", "c", 1}));
  EXPECT_EQ(Take("a/b/ /\nc // d"), (Taken{"a/b/ /", "c // d", 1}));
  EXPECT_EQ(Take("a/\n/b"), (Taken{"a/", "/b", 1}));
  EXPECT_EQ(Take("a ///"), (Taken{"a ", "", 0}));
  EXPECT_EQ(Take("all"), (Taken{"all", "", 0}));
  EXPECT_EQ(Take(""), (Taken{"", "", 0}));
}

TEST(NextDataLine, ConsumesARunOfEmptyLines) {
  EXPECT_EQ(Take("a\n\n\nb\n"), (Taken{"a", "b\n", 3}));
  EXPECT_EQ(Take("\n\na"), (Taken{"", "a", 2}));
  EXPECT_EQ(Take("a\n \nb"), (Taken{"a", " \nb", 1}));
  EXPECT_EQ(Take("a\n\n"), (Taken{"a", "", 2}));
}

TEST(NextDataLine, AcceptsBothLineEnds) {
  EXPECT_EQ(Take("a\r\n\r\n\r\nb\r\n"), (Taken{"a", "b\r\n", 3}));
  EXPECT_EQ(Take("15 // x\r\nb"), (Taken{"15 ", "b", 1}));
  EXPECT_EQ(Take("a\rb\r"), (Taken{"a\rb", "", 0}));
  EXPECT_EQ(Take("a\r\r\nb"), (Taken{"a", "b", 1}));
  EXPECT_EQ(Take("a\n\rb"), (Taken{"a", "\rb", 1}));
}

TEST(SplitTokens, SplitsAtSingleSeparators) {
  EXPECT_EQ(SplitTokens("a b c", ' '), (Tokens{"a", "b", "c"}));
  EXPECT_EQ(SplitTokens("head_bone=skull", '='), (Tokens{"head_bone", "skull"}));
  EXPECT_EQ(SplitTokens("jaw -> head", " -> "), (Tokens{"jaw", "head"}));
  EXPECT_EQ(SplitTokens("jaw->head -> x -> y", " -> "), (Tokens{"jaw->head", "x", "y"}));
  EXPECT_EQ(SplitTokens("none", " -> "), (Tokens{"none"}));
}

TEST(SplitTokens, StopsAtASeparatorInFront) {
  EXPECT_EQ(SplitTokens("a  b c", " "), (Tokens{"a", " b c"}));
  EXPECT_EQ(SplitTokens(" a b", ' '), (Tokens{" a b"}));
  EXPECT_EQ(SplitTokens(" -> head", " -> "), (Tokens{" -> head"}));
}

TEST(SplitTokens, HasAnEmptyLastToken) {
  EXPECT_EQ(SplitTokens("15 ", " "), (Tokens{"15", ""}));
  EXPECT_EQ(SplitTokens("jaw -> ", " -> "), (Tokens{"jaw", ""}));
  EXPECT_EQ(SplitTokens("", ' '), (Tokens{""}));
}

TEST(TokenCursor, GivesEmptyTokensPastTheEnd) {
  TokenCursor cursor("a b c", " ");
  cursor.Skip(2);
  EXPECT_FALSE(cursor.Done());
  EXPECT_EQ(cursor.Next(), "c");
  EXPECT_TRUE(cursor.Done());
  EXPECT_EQ(cursor.Next(), "");
  cursor.Skip(2147483647);
  EXPECT_EQ(cursor.Next(), "");
}

TEST(DataLineReader, GivesLinesWithTheirNumbers) {
  DataLineReader lines("\n// title\r\n\r\n2 // v\n\n\n \nlast");
  std::string_view line;
  EXPECT_EQ(lines.LineNumber(), 0U);
  ASSERT_TRUE(lines.Next(line));
  EXPECT_EQ(line, "2 ");
  EXPECT_EQ(lines.LineNumber(), 4U);
  ASSERT_TRUE(lines.Next(line));
  EXPECT_EQ(line, " ");
  EXPECT_EQ(lines.LineNumber(), 7U);
  ASSERT_TRUE(lines.Next(line));
  EXPECT_EQ(line, "last");
  EXPECT_FALSE(lines.Next(line));
  EXPECT_EQ(lines.LineNumber(), 8U);
}

TEST(DataLineReader, TakesALastLoneSlashForACutComment) {
  std::string_view line;
  EXPECT_FALSE(DataLineReader("/").Next(line));
  EXPECT_FALSE(DataLineReader("// title\n/").Next(line));
  EXPECT_TRUE(DataLineReader("/\n").Next(line));
  EXPECT_TRUE(DataLineReader("2/").Next(line));
}

}  // namespace
}  // namespace lipvane
