#include "lipvane/formats/data_lines.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "lipvane/text/numbers.h"

namespace lipvane {
namespace {

using Tokens = std::vector<std::string_view>;

/// The line, what remains, and the line feeds passed.
std::string Take(std::string_view text) {
  std::string_view line = "before";
  const std::size_t passed = NextDataLine(text, line);
  return std::string(line) + "|" + std::string(text) + "|" + std::to_string(passed);
}

TEST(NextDataLine, EndsAtALineFeedOrAComment) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"a b\nc", "a b|c|1"},
      {"15 // fifteen // 16\nc", "15 |c|1"},
      {"// title\nc", "|c|1"},
      {"a/b/ /\nc // d", "a/b/ /|c // d|1"},
      {"a/\n/b", "a/|/b|1"},
      {"a ///", "a ||0"},
      {"", "||0"},
      // A run of empty lines goes with it.
      {"a\n\n\nb\n", "a|b\n|3"},
      {"a\n \nb", "a| \nb|1"},
      {"a\n\n", "a||2"},
      // Either line end.
      {"a\r\n\r\n\r\nb\r\n", "a|b\r\n|3"},
      {"15 // x\r\nb", "15 |b|1"},
      {"a\rb\r", "a\rb||0"},
      {"a\r\r\n\r\r\nb", "a\r|\r\r\nb|1"},
      {"\r\r\n\r\nb", "\r|b|2"},
      {"a\n\rb", "a|\rb|1"}};
  for (const auto& [text, taken] : cases) {
    EXPECT_EQ(Take(text), taken);
  }
}

TEST(SplitTokens, SplitsAtSingleSeparators) {
  EXPECT_EQ(SplitTokens("head_bone=skull", '='), (Tokens{"head_bone", "skull"}));
  EXPECT_EQ(SplitTokens("jaw->head -> x -> y", " -> "), (Tokens{"jaw->head", "x", "y"}));
  // One in front of what is left ends the splitting.
  EXPECT_EQ(SplitTokens("a  b c", " "), (Tokens{"a", " b c"}));
  EXPECT_EQ(SplitTokens(" -> head", " -> "), (Tokens{" -> head"}));
  // One at the end has an empty token behind it.
  EXPECT_EQ(SplitTokens("15 ", " "), (Tokens{"15", ""}));
  EXPECT_EQ(SplitTokens("jaw -> ", " -> "), (Tokens{"jaw", ""}));
  EXPECT_EQ(SplitTokens("", ' '), (Tokens{""}));
}

TEST(TokenCursor, SkipsWhatNextWouldGive) {
  std::vector<std::string> lines = {"",    " ",    "a",      "a ",      " a",
                                    "a b", "a b ", "a  b c", "aa bb  ", "a b c d"};
  std::mt19937 random(3);
  for (unsigned i = 0; i < 3000; ++i) {
    std::string& line = lines.emplace_back(random() % 200, 'x');
    // Doubled ones are rare in most.
    const unsigned rarity = 2 + i % 9;
    for (std::size_t place = i % 3; place < line.size(); place += 1 + random() % (2 * rarity))
      line[place] = ' ';
  }
  for (const std::string& line : lines) {
    for (int count = 0; count < 26; ++count) {
      TokenCursor skipping(line, " ");
      TokenCursor stepping(line, " ");
      skipping.Skip(count);
      for (int i = 0; i < count; ++i)
        stepping.Next();
      EXPECT_EQ(skipping.Done(), stepping.Done()) << line << '|' << count;
      EXPECT_EQ(skipping.Next(), stepping.Next()) << line << '|' << count;
    }
  }
}

TEST(TokenCursor, ReadsTheNumbersThatTokensBeginWith) {
  const Tokens tokens = SplitTokens(
      "-0.5 12 3. .5 1e-05 nan -1.#IND 0.123456789012345 0.85 -0.000123 12345678901234567890 +7 -0 "
      "5x - -. \t8 99999999999999.9 1 0",
      " ");
  std::mt19937 random(8);
  for (int i = 0; i < 5000; ++i) {
    std::string line;
    for (std::size_t count = random() % 40; count > 0; --count)
      line.append(tokens[random() % tokens.size()]).append(random() % 60 != 0 ? " " : "  ");
    if (random() % 2 == 0) line += "0.5";
    // Of just this size, so that a look beyond shows.
    const std::vector<char> bytes(line.begin(), line.end());
    TokenCursor reading({bytes.data(), bytes.size()}, " ");
    TokenCursor stepping(line, " ");
    for (int round = 0; round < 6; ++round) {
      const int skipped = static_cast<int>(random() % 12);
      reading.Skip(skipped);
      for (int s = 0; s < skipped; ++s)
        stepping.Next();
      for (const float value : reading.NextFloats<5>()) {
        const auto expected = static_cast<float>(text::RealPrefix(stepping.Next()));
        ASSERT_EQ(value, expected) << line;
        ASSERT_EQ(std::signbit(value), std::signbit(expected)) << line;
      }
      ASSERT_EQ(reading.Done(), stepping.Done()) << line;
    }
    ASSERT_EQ(reading.Next(), stepping.Next()) << line;
  }
}

TEST(DataLineReader, TakesALoneSlashForData) {
  std::string_view line;
  EXPECT_TRUE(DataLineReader("// title\n/").Next(line));
  EXPECT_EQ(line, "/");
  EXPECT_FALSE(DataLineReader("\r\n//").Next(line));
}

}  // namespace
}  // namespace lipvane
