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

TEST(CheckWordsTest, FindsNothingInWhatTheSyntaxDeclares) {
  const WordCheck check = CheckWords(
      "go", TestSyntax("names"),
      {"a", "-exp", "A", "-import", "-expression", "-import", "-1.5", "-lbp", "", "-np", "-3"});
  EXPECT_EQ(check.error, "");
  EXPECT_EQ(check.notes, Words{});
  EXPECT_EQ(check.objects, (Words{"a", "-1.5"}));
}

TEST(CheckWordsTest, RefusesWhatItDoesNotKnowAndNotesOrRefusesTheRest) {
  const std::string accepted =
      "t accepts -i/-import, -lbp/-lbpfile STRING, -np/-numposes INTEGER, -exp/-expression "
      "STRING (any number of times)";
  EXPECT_EQ(CheckWords("go", TestSyntax("names"), {"-imprt", "-x"}).error,
            "go: unknown flag \"-imprt\"; did you mean \"-import\"? I" + accepted + ", names");
  struct Case {
    Words words;
    std::string problem;
    std::string difference;
  };
  std::vector<Case> cases = {
      {{"-i", "j\na\033w"}, "unexpected word \"j\\na?w\"", "it is passed over"},
      {{"-5"}, "unexpected word \"-5\"", "it is passed over"},
      {{"-exp", "-exp", "-exp"}, "flag -exp/-expression has no value", "it is passed over"},
      {{"-lbp", "a", "-lbpfile", "b"},
       "flag -lbp/-lbpfile is given more than once",
       "\"b\" is passed over"},
      {{"-np", "-2.9"},
       "the value \"-2.9\" of flag -np/-numposes is no INTEGER",
       "it is read as -2"}};
  for (const std::string value : {"three", "3x", "", "-inf", "99999999999", "++3", "+-3"})
    cases.push_back({{"-np", value},
                     "the value \"" + value + "\" of flag -np/-numposes is no INTEGER",
                     "it is passed over"});
  CommandSyntax syntax = TestSyntax();
  for (const Case& each : cases) {
    syntax.isStrict = false;
    EXPECT_EQ(CheckWords("go", syntax, each.words).notes,
              Words{"go: " + each.problem + ": " + each.difference});
    syntax.isStrict = true;
    EXPECT_EQ(CheckWords("go", syntax, each.words).error, "go: " + each.problem + "; i" + accepted);
  }
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

}  // namespace
}  // namespace lipvane::standalone
