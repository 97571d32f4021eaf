// What becomes of work that there is no memory for.

#include "tests/cli/cli_test.h"

namespace lipvane::test {
namespace {

TEST_F(CliTest, WorkBeyondTheMemoryFailsInWordsAndLeavesTheOldFile) {
  std::string scene = "//Maya ASCII 2024 scene\n";
  for (int i = 0; i < 100'000; ++i)
    scene += "createNode joint -n \"joint" + std::to_string(i) + "\";\n";
  folder_.Make("large.ma", scene);
  folder_.Make("out.ma", "old");
  // For the first there is no memory to read the scene, for the others none to report on it.
  for (const std::string line :
       {"ulimit -v 24000 && exec " LIPVANE_BINARY " run large.ma -o out.ma",
        "ulimit -v 32000 && exec " LIPVANE_BINARY " inspect large.ma",
        "ulimit -v 32000 && exec " LIPVANE_BINARY " inspect --json large.ma",
        "ulimit -v 40000 && exec " LIPVANE_BINARY " inspect --json large.ma"}) {
    const ProcessResult result = RunProcess("/bin/sh", {"-c", line});
    EXPECT_EQ(result.status, 1) << line;
    EXPECT_EQ(result.err, "Error: out of memory\n") << line;
    EXPECT_EQ(result.out, "");
  }
  EXPECT_EQ(folder_.Content("out.ma"), "old");
  EXPECT_EQ(folder_.Names().size(), 2U);
}

}  // namespace
}  // namespace lipvane::test
