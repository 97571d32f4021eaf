#include "lipvane/host/standalone/words.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace lipvane::standalone {
namespace {

CommandSyntax TestSyntax(const std::string& objects = "") {
  CommandSyntax syntax;
  syntax.flags.AddFlag("-i", "-import");
  syntax.flags.AddFlag("-lbp", "-lbpfile", host::ArgType::kString);
  syntax.flags.AddFlag("-np", "-numposes", host::ArgType::kLong);
  syntax.flags.AddFlag("-exp", "-expression", host::ArgType::kString);
  syntax.flags.MakeFlagMultiUse("-exp");
  syntax.objects = objects;
  return syntax;
}

using Words = std::vector<std::string>;

TEST(CheckWordsTest, AcceptsWhatTheSyntaxDeclares) {
  Words objects;
  EXPECT_EQ(CheckWords("go", TestSyntax(), {}, objects), "");
  EXPECT_EQ(CheckWords("go", TestSyntax(),
                       {"-exp", "A", "-import", "-expression", "-import", "-lbp", "", "-np", "-3"},
                       objects),
            "");
  EXPECT_EQ(CheckWords("go", TestSyntax("names"), {"a", "-lbp", "x", "-1.5", "b"}, objects), "");
  EXPECT_EQ(objects, (Words{"a", "-1.5", "b"}));
}

TEST(CheckWordsTest, NamesWhatIsWrongAndWhatIsAccepted) {
  std::vector<std::pair<Words, std::string>> cases = {
      {{"-imprt"}, "unknown flag \"-imprt\""},
      {{"-i", "jaw"}, "unexpected word \"jaw\""},
      {{"-5"}, "unknown flag \"-5\""},
      {{"-i", "-lbp"}, "flag -lbp/-lbpfile has no value"},
      {{"-i", "-import"}, "flag -i/-import is given more than once"}};
  for (const std::string value : {"three", "3.0", "3x", "", "99999999999", "++3", "+-3"}) {
    cases.push_back(
        {{"-np", value}, "the value \"" + value + "\" of flag -np/-numposes is no INTEGER"});
  }
  Words objects;
  for (const auto& [words, problem] : cases) {
    EXPECT_EQ(CheckWords("go", TestSyntax(), words, objects),
              "go: " + problem +
                  "; it accepts -i/-import, -lbp/-lbpfile STRING, -np/-numposes INTEGER, "
                  "-exp/-expression STRING (any number of times)");
  }
  EXPECT_NE(CheckWords("go", TestSyntax("names"), {"-x"}, objects).find(", names"),
            std::string::npos);
}

TEST(WordArgDatabaseTest, ReadsFlagsByEitherNameAndPassesOverTheRest) {
  const WordArguments arguments(
      {"stray", "-lbpfile", "first", "-unknown", "-lbp", "second", "-exp", "-i", "-np", "7"});
  const WordArgDatabase database(TestSyntax().flags, arguments);
  std::string text = "kept";
  int number = 1;
  EXPECT_TRUE(database.GetFlagArgument("-lbp", 0, text).ok());
  EXPECT_EQ(text, "first");
  EXPECT_TRUE(database.GetFlagArgument("-expression", 0, text).ok());
  EXPECT_EQ(text, "-i");
  EXPECT_FALSE(database.IsFlagSet("-i"));  // it was a value
  EXPECT_TRUE(database.GetFlagArgument("-numposes", 0, number).ok());
  EXPECT_EQ(number, 7);
  EXPECT_EQ(database.NumberOfFlagUses("-lbp"), 2U);
  EXPECT_EQ(database.NumberOfFlagUses("-i"), 0U);
}

TEST(WordArgDatabaseTest, FailsQuietlyWithTheValueLeftAlone) {
  const WordArgDatabase database(TestSyntax().flags, WordArguments({"-i", "-np", "x", "-lbp"}));
  std::string text = "kept";
  int number = 1;
  EXPECT_TRUE(database.IsFlagSet("-lbp"));
  for (const char* flag : {"-lbp", "-i", "-exp", "-nobody"}) {
    EXPECT_FALSE(database.GetFlagArgument(flag, 0, text).ok()) << flag;
  }
  EXPECT_FALSE(database.GetFlagArgument("-np", 0, number).ok());
  EXPECT_FALSE(database.IsFlagSet("-nobody"));
  EXPECT_EQ(text, "kept");
  EXPECT_EQ(number, 1);
}

}  // namespace
}  // namespace lipvane::standalone
