#include "tests/cli/cli_test.h"

namespace lipvane::test {
namespace {

using Arguments = std::vector<std::string>;

TEST_F(CliTest, HelpAndVersionGoToStandardOutput) {
  const std::vector<std::pair<Arguments, std::string>> cases = {{{"--help"}, "Usage:"},
                                                                {{"run", "--help"}, "--report"},
                                                                {{"inspect", "--help"}, "--json"},
                                                                {{"--version"}, "lipvane "}};
  for (const auto& [arguments, part] : cases) {
    const ProcessResult result = Lipvane(arguments);
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(Has(result.out, part)) << result.out;
    EXPECT_EQ(result.err, "");
  }
}

TEST_F(CliTest, WrongUsageIsStatusTwo) {
  const std::vector<std::pair<Arguments, std::string>> cases = {
      {{}, "inspect"},  // the help
      {{"frobnicate"}, "Error: "},
      {{"run"}, "Error: "},
      {{"run", "a.ma", "-e"}, "Error: "},
      {{"run", "a.ma", "b.ma"}, "Error: "},
      {{"run", "a.ma", "--frob"}, "Error: "},
      {{"run", "a.ma", "-o", ""}, "Error: -o: needs the name of a file"},
      {{"run", "a.ma", "--report", ""}, "Error: --report: needs the name of a file"},
      {{"run", "a.ma", "-o", "./b", "--report", "b"}, "name the same file, ./b"},
      {{"inspect"}, "Error: "},
      {{"inspect", "a", "b"}, "Error: "},
      {{"inspect", "a", "--jsno"}, "Error: "}};
  for (const auto& [arguments, part] : cases) {
    const ProcessResult result = Lipvane(arguments);
    EXPECT_EQ(result.status, 2) << part;
    EXPECT_TRUE(Has(result.err, part)) << result.err;
    EXPECT_EQ(result.out, "");
  }
}

}  // namespace
}  // namespace lipvane::test
