#include "lipvane/host/standalone/ma_statements.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "lipvane/host/standalone/ma_tokens.h"

namespace lipvane::standalone {
namespace {

std::vector<std::string> Statements(const std::string& text) {
  StatementScanner scanner(text);
  std::vector<std::string> found;
  for (Statement statement; scanner.Next(statement);) {
    EXPECT_EQ(text.substr(statement.begin, statement.end - statement.begin),
              std::string(statement.text) + ";");
    found.emplace_back(statement.text);
  }
  return found;
}

using Texts = std::vector<std::string>;

TEST(StatementScanner, EndsStatementsAtSemicolonsOutsideStringsAndComments) {
  EXPECT_EQ(Statements("a b; c\n\td;"), (Texts{"a b", "c\n\td"}));
  EXPECT_EQ(Statements("a \";//\"; b \"\\\";\";"), (Texts{"a \";//\"", "b \"\\\";\""}));
  EXPECT_EQ(Statements("// a;\nb // c;\n d;/* e; */f;"), (Texts{"b // c;\n d", "f"}));
  EXPECT_EQ(Statements("a/b;c/;d/\";\";"), (Texts{"a/b", "c/", "d/\";\""}));
  EXPECT_EQ(Statements("{ a; } ;; b;\n// end"), (Texts{"a", "b"}));
}

TEST(StatementScanner, FindsTheSameWhereverTheTextStands) {
  const std::string text =
      "a \"a string; // of many /* bytes \\\"\\\\\" b;// a comment; of many \" bytes\r\nc/*;\"*/ "
      "\";\";d/e;";
  const Texts expected = Statements(text);
  ASSERT_EQ(expected.size(), 3U);
  for (std::size_t shift = 0; shift < 40; ++shift) {
    const std::string before(shift, 'x');
    Texts found = Statements(before + ";" + text);
    if (shift > 0) found.erase(found.begin());
    EXPECT_EQ(found, expected) << shift;
    // The same inside a long statement and behind a long string.
    EXPECT_EQ(Statements("\"" + before + "\"" + text).back(), expected.back());
    EXPECT_EQ(Statements(before + text).size(), expected.size());
  }
}

TEST(LineCounter, CountsEveryKindOfLineEnd) {
  constexpr const char* kEnds[] = {"\n", "\r", "\r\n"};
  std::mt19937 random(3);
  std::string text;
  for (int i = 0; i < 500; ++i)
    text += std::string(random() % 24, '.') + kEnds[random() % 3];
  LineCounter lines(text);
  std::size_t line = 1;
  for (std::size_t i = 0; i < text.size(); ++i) {
    ASSERT_EQ(lines.LineOf(i), line) << i;
    const bool isPaired = text.compare(i, 2, "\r\n") == 0;
    if (text[i] == '\n' || (text[i] == '\r' && !isPaired)) ++line;
  }
}

TEST(StatementScanner, KnowsAllLineEndsAndTheByteOrderMark) {
  EXPECT_EQ(Statements("\xEF\xBB\xBF// x\r\na;\r\nb;"), (Texts{"a", "b"}));
  EXPECT_EQ(Statements("// x\ra;\rb;\r"), (Texts{"a", "b"}));
  LineCounter lines("a\r\nb\rc\nd");
  EXPECT_EQ(lines.LineOf(0), 1u);
  EXPECT_EQ(lines.LineOf(3), 2u);
  EXPECT_EQ(lines.LineOf(7), 4u);
  EXPECT_EQ(lines.LineOf(5), 3u);
}

TEST(StatementScanner, SaysWhereTheTextBreaksOff) {
  for (const auto& [text, offset] :
       {std::pair{"a; b", 3}, std::pair{"a; b \"c", 5}, std::pair{"a \"b\nc\";", 2},
        std::pair{"a \"b\rc\";", 2}, std::pair{"a; /* b;", 2}, std::pair{"a /*;", 2},
        std::pair{"a \"b\\", 2}}) {
    try {
      Statements(text);
      ADD_FAILURE() << text;
    } catch (const ScanError& error) {
      EXPECT_EQ(error.offset(), static_cast<std::size_t>(offset)) << text;
    }
  }
}

TEST(StatementScanner, TakesNoSecondByteOfACharacterForABackslash) {
  // In these code pages 0x83 0x5C is one character, whether or not the writer doubled its end.
  const std::string header = "//Codeset: 932\n";
  EXPECT_EQ(Statements(header + "a \"\x83\\\"; b;"), (Texts{"a \"\x83\\\"", "b"}));
  EXPECT_EQ(Statements(header + "a \"\x83\\\\\"; b;"), (Texts{"a \"\x83\\\\\"", "b"}));
  EXPECT_EQ(Statements("a \"\x83\\\";\"; b;"), (Texts{"a \"\x83\\\";\"", "b"}));
}

TEST(TokenReader, TellsWordsStringsAndExpressionsApart) {
  const std::string text =
      "setAttr -l on/*x*/\"a\\\"b\\n\"(\"c\" + \"d\") (1 + 2) -1.#INF -inf // e";
  TokenReader reader(text);
  const auto expect = [&reader](Token::Kind kind, const std::string& word) {
    const Token token = reader.Next();
    EXPECT_EQ(token.kind, kind) << word;
    EXPECT_EQ(token.text, word);
    return token.IsFlag();
  };
  EXPECT_FALSE(expect(Token::Kind::kWord, "setAttr"));
  EXPECT_TRUE(expect(Token::Kind::kWord, "-l"));
  EXPECT_FALSE(expect(Token::Kind::kWord, "on"));
  expect(Token::Kind::kString, "a\"b\n");
  expect(Token::Kind::kString, "cd");
  expect(Token::Kind::kExpression, "(1 + 2)");
  EXPECT_FALSE(expect(Token::Kind::kWord, "-1.#INF"));
  EXPECT_FALSE(expect(Token::Kind::kWord, "-inf"));
  expect(Token::Kind::kEnd, "");
}

TEST(TokenReader, ReadsBackWhatIsQuoted) {
  const std::string text = "a\"b\\c\nd\te\r\xE9";
  const std::string quoted = Quoted(text);
  EXPECT_EQ(TokenReader(quoted).Next().text.size(), text.size());
  TokenReader reader(quoted);
  EXPECT_EQ(reader.Next().text, text);
}

TEST(TokenReader, StepsOverCharactersOfTwoBytes) {
  const CodePage page = CodePage::OfScene("//Codeset: 932\n");
  // 0xB1 is a character of one byte, so that what follows is an escape.
  for (const auto& [quoted, text] :
       {std::pair{"\"\x83\\\" -p", "\x83\\"}, std::pair{"\"\x83\\\\\" -p", "\x83\\"},
        std::pair{"\"\xB1\\\"\\n\" -p", "\xB1\"\n"}}) {
    TokenReader reader(quoted, page);
    EXPECT_EQ(reader.Next().text, text);
    EXPECT_EQ(reader.Next().text, "-p");
  }
  // The last ones hold halves of characters.
  for (const std::string text : {"\x83\\\\\x83\\\"\x83\\", "\x83\"\xE4\n", "\x83\\\xE4\"\xE4"}) {
    for (const bool doubleAll : {false, true}) {
      const std::string quoted = Quoted(text, page, doubleAll);
      TokenReader reader(quoted, page);
      EXPECT_EQ(reader.Next().text, text);
      EXPECT_EQ(reader.Next().kind, Token::Kind::kEnd);
    }
  }
}

}  // namespace
}  // namespace lipvane::standalone
