#include "tests/cli/cli_test.h"

namespace lipvane::test {
namespace {

TEST_F(CliTest, HelpAndVersionGoToStandardOutput) {
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{"--help"}, {"run", "--help"}, {"inspect", "--help"}}) {
    const ProcessResult result = Lipvane(arguments);
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(Has(result.out, "Usage:")) << result.out;
    EXPECT_EQ(result.err, "");
  }
  const ProcessResult version = Lipvane({"--version"});
  EXPECT_EQ(version.status, 0);
  EXPECT_EQ(version.out.substr(0, 8), "lipvane ");
  EXPECT_TRUE(Has(Lipvane({"run", "--help"}).out, "--report"));
}

TEST_F(CliTest, WithoutArgumentsTheHelpIsAnError) {
  const ProcessResult result = Lipvane({});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.out, "");
  EXPECT_TRUE(Has(result.err, "inspect"));
}

TEST_F(CliTest, WrongUsageIsStatusTwo) {
  for (const std::vector<std::string>& arguments : {std::vector<std::string>{"frobnicate"},
                                                    {"run"},
                                                    {"run", "a.ma", "-e"},
                                                    {"run", "a.ma", "b.ma"},
                                                    {"run", "a.ma", "--frob"},
                                                    {"inspect"},
                                                    {"inspect", "a", "b"},
                                                    {"inspect", "a", "--jsno"}}) {
    const ProcessResult result = Lipvane(arguments);
    EXPECT_EQ(result.status, 2) << arguments.back();
    EXPECT_EQ(result.err.substr(0, 7), "Error: ") << result.err;
    EXPECT_EQ(result.out, "");
  }
}

}  // namespace
}  // namespace lipvane::test
