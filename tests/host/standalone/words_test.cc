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

TEST(CheckWordsTest, AnUnknownFlagIsAnErrorAndWhatIsPassedOverIsNoted) {
  for (const char* objects : {"", "names"}) {
    EXPECT_EQ(
        CheckWords("go", TestSyntax(objects), {"-imprt", "-x"}).error,
        std::string("go: unknown flag \"-imprt\"; it accepts -i/-import, -lbp/-lbpfile STRING, "
                    "-np/-numposes INTEGER, -exp/-expression STRING (any number of times)") +
            (*objects == 0 ? "" : ", names"));
  }
  std::vector<std::pair<Words, std::string>> cases = {
      {{"-i", "jaw"}, "the word \"jaw\" belongs to no flag and is passed over"},
      {{"-5"}, "the word \"-5\" belongs to no flag and is passed over"},
      {{"-exp", "-exp", "-exp"}, "flag -exp/-expression has no value and is passed over"},
      {{"-i", "-i", "-lbp", "a", "-lbpfile", "b"},
       "flag -lbp/-lbpfile is given more than once: the value \"b\" is passed over"},
      {{"-np", "-2.9"}, "the value \"-2.9\" of flag -np/-numposes is read as -2"}};
  for (const std::string value : {"three", "3x", "", "-inf", "99999999999", "++3", "+-3"}) {
    cases.push_back(
        {{"-np", value},
         "the value \"" + value + "\" of flag -np/-numposes is no INTEGER and is passed over"});
  }
  for (const auto& [words, note] : cases) {
    const WordCheck check = CheckWords("go", TestSyntax(), words);
    EXPECT_EQ(check.error, "");
    EXPECT_EQ(check.notes, Words{"go: " + note});
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
