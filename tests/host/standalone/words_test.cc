#include "lipvane/host/standalone/words.h"

#include <gtest/gtest.h>

#include <string>
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

const char kAccepts[] =
    "; it accepts -i/-import, -lbp/-lbpfile STRING, -np/-numposes INTEGER, "
    "-exp/-expression STRING (any number of times)";

std::string Check(const std::vector<std::string>& words) {
  std::vector<std::string> objects;
  return CheckWords("go", TestSyntax(), words, objects);
}

TEST(CheckWordsTest, AcceptsWhatTheSyntaxDeclares) {
  EXPECT_EQ(Check({}), "");
  EXPECT_EQ(Check({"-exp", "A", "-import", "-expression", "-import", "-lbp", "", "-np", "-3"}), "");
}

TEST(CheckWordsTest, NamesWhatIsWrongAndWhatIsAccepted) {
  EXPECT_EQ(Check({"-imprt"}), std::string("go: unknown flag \"-imprt\"") + kAccepts);
  EXPECT_EQ(Check({"-i", "jaw"}), std::string("go: unexpected word \"jaw\"") + kAccepts);
  EXPECT_EQ(Check({"-5"}), std::string("go: unknown flag \"-5\"") + kAccepts);
  EXPECT_EQ(Check({"-i", "-lbp"}), std::string("go: flag -lbp/-lbpfile has no value") + kAccepts);
  EXPECT_EQ(Check({"-i", "-import"}),
            std::string("go: flag -i/-import is given more than once") + kAccepts);
  for (const std::string value : {"three", "3.0", "3x", "", "99999999999", "++3", "+-3"}) {
    EXPECT_EQ(Check({"-np", value}),
              "go: the value \"" + value + "\" of flag -np/-numposes is no INTEGER" + kAccepts);
  }
}

TEST(CheckWordsTest, SortsOutOtherWords) {
  std::vector<std::string> objects;
  EXPECT_EQ(CheckWords("go", TestSyntax("names"), {"a", "-lbp", "x", "-1.5", "b"}, objects), "");
  EXPECT_EQ(objects, (std::vector<std::string>{"a", "-1.5", "b"}));
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
  EXPECT_FALSE(database.GetFlagArgument("-lbp", 0, text).ok());
  EXPECT_FALSE(database.GetFlagArgument("-i", 0, text).ok());
  EXPECT_FALSE(database.GetFlagArgument("-exp", 0, text).ok());
  EXPECT_FALSE(database.GetFlagArgument("-nobody", 0, text).ok());
  EXPECT_FALSE(database.GetFlagArgument("-np", 0, number).ok());
  EXPECT_FALSE(database.IsFlagSet("-nobody"));
  EXPECT_EQ(text, "kept");
  EXPECT_EQ(number, 1);

  const WordArguments none({});
  EXPECT_EQ(none.Length(), 0U);
  EXPECT_FALSE(none.AsString(0, text).ok());
}

}  // namespace
}  // namespace lipvane::standalone
