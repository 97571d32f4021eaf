#include "lipvane/host/maya/maya_arguments.h"

#include <gtest/gtest.h>

#include "tests/maya_standin/standin.h"

namespace lipvane::maya {
namespace {

TEST(MayaArguments, WhatIsNotThereFailsAndLeavesTheValue) {
  test::RecordingHost host({});
  test::RecordingStandinScene scene(host);
  const test::Standin standin(scene);
  host::Syntax syntax;
  syntax.AddFlag("-t", "-text", host::ArgType::kString);
  syntax.AddFlag("-n", "-number", host::ArgType::kLong);
  syntax.AddFlag("-e", "-each", host::ArgType::kString);
  syntax.MakeFlagMultiUse("-e");
  MArgList list;
  for (const char* word : {"-e", "a", "-e", "b"})
    list.addArg(word);
  const MayaArguments arguments(list);
  const MayaArgDatabase database(syntax, arguments);
  std::string text = "kept";
  int number = 7;
  EXPECT_FALSE(arguments.AsString(arguments.Length(), text).ok());
  EXPECT_FALSE(database.GetFlagArgument("-t", 0, text).ok());
  EXPECT_FALSE(database.GetFlagArgument("-n", 0, number).ok());
  EXPECT_EQ(text, "kept");
  EXPECT_EQ(number, 7);
  EXPECT_EQ(database.NumberOfFlagUses("-e"), 2u);
}

}  // namespace
}  // namespace lipvane::maya
