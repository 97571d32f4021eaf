#include "lipvane/host/standalone/mel.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace lipvane::standalone {
namespace {

using Words = std::vector<std::string>;

std::vector<MelCommand> Split(const std::string& text) {
  return SplitMel({text, "face.mel", true},
                  [](const std::string& word) { return word == "select" || word == "go"; });
}

std::vector<Words> AllWords(const std::string& text) {
  std::vector<Words> all;
  for (const MelCommand& command : Split(text))
    all.push_back(command.words);
  return all;
}

std::string ErrorOf(const std::string& text) {
  try {
    Split(text);
  } catch (const MelError& error) {
    return error.what();
  }
  return "";
}

TEST(MelTest, SplitsCommandsWordsStringsAndComments) {
  EXPECT_EQ(AllWords("go -a 1;select  jaw ;; ; go"),
            (std::vector<Words>{{"go", "-a", "1"}, {"select", "jaw"}, {"go"}}));
  EXPECT_EQ(AllWords(R"(go "a b;c//d" "say \"x\"\n\t\\ \q" "" -lbp"x"y)"),
            (std::vector<Words>{{"go", "a b;c//d", "say \"x\"\n\t\\ q", "", "-lbp", "x", "y"}}));
  EXPECT_EQ(AllWords("currentTime +1e+2 -0.5 |head|jaw ns:jaw*"),
            (std::vector<Words>{{"currentTime", "+1e+2", "-0.5", "|head|jaw", "ns:jaw*"}}));
  EXPECT_EQ(AllWords("\xEF\xBB\xBF// select all;\ngo a // b; c\n /* select\n b */ d; /**/ go/**/x"),
            (std::vector<Words>{{"go", "a", "d"}, {"go", "x"}}));
  EXPECT_TRUE(AllWords(" \n;// nothing").empty());
}

TEST(MelTest, ALineOfAKnownCommandBeginsANewOne) {
  EXPECT_EQ(AllWords("go -a\r\n  -b\r\n  select x\r\ngo"),
            (std::vector<Words>{{"go", "-a", "-b"}, {"select", "x"}, {"go"}}));
  // Not when the name is quoted, an unknown one, or within a line.
  EXPECT_EQ(AllWords("go -a\n\"select\" -b\nother go"),
            (std::vector<Words>{{"go", "-a", "select", "-b", "other", "go"}}));
}

TEST(MelTest, KeepsTheLineAsWrittenAndItsPlace) {
  const auto commands = Split("\n go \"a\\n\"  x ; // end\n/*\n*/ select\n y;");
  ASSERT_EQ(commands.size(), 2U);
  EXPECT_EQ(commands[0].line, "go \"a\\n\"  x");
  EXPECT_EQ(commands[0].place, "face.mel:2");
  EXPECT_EQ(commands[1].line, "select\n y");
  EXPECT_EQ(commands[1].place, "face.mel:4");
  const auto any = [](const std::string&) { return true; };
  EXPECT_EQ(SplitMel({"\ngo", "-e 2", false, {}}, any)[0].place, "-e 2");
  // A character of two bytes may end in what looks like a backslash.
  const CodePage page = CodePage::OfScene("//Codeset: 932\n");
  EXPECT_EQ(SplitMel({"go \"\x83\x5c\" x", "-e 1", false, page}, any)[0].words,
            (std::vector<std::string>{"go", "\x83\x5c", "x"}));
}

TEST(MelTest, RefusesWhatIsNotAPlainCommandLine) {
  for (const std::string word : {"$x", "`ls`", "(1)", "{", "}", "\"a\" + \"b\"", "a+b"}) {
    EXPECT_EQ(ErrorOf("go\n " + word).substr(0, 12), "face.mel:2: ") << word;
    EXPECT_NE(ErrorOf("go\n " + word).find("is not supported"), std::string::npos) << word;
  }
  EXPECT_EQ(ErrorOf("go \"$x `y` (a) {b} + c\""), "");
  EXPECT_EQ(ErrorOf("go;\n\ngo \"a\nb\""), "face.mel:3: a string is not closed on its line");
  for (const char* text : {"go \"a\\", "go \"a\\\nb\""}) {
    EXPECT_EQ(ErrorOf(text), "face.mel:1: a string is not closed on its line");
  }
  EXPECT_EQ(ErrorOf("\ngo /* x \n"), "face.mel:2: a comment is not closed");
  try {
    Split("go; select -r $x jaw\ngo");
    FAIL();
  } catch (const MelError& error) {
    EXPECT_EQ(error.line, "select -r $x jaw");
  }
}

}  // namespace
}  // namespace lipvane::standalone
