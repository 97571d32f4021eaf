// Nodes one below the other have paths that grow with the square of their number: what would name
// them all is refused, and nothing is left half-written.

#include "tests/cli/cli_test.h"

namespace lipvane::test {
namespace {

class LongPathsTest : public CliTest {
 protected:
  static std::string Name(int i) { return std::string(60, 'j') + std::to_string(i); }
  /// Below a node of this name.
  static std::string Chain(const std::string& top, int levels) {
    std::string text = "createNode joint -n \"" + top + "\";\n";
    for (int i = 0; i < levels; ++i)
      text +=
          "createNode joint -n \"" + Name(i) + "\" -p \"" + (i == 0 ? top : Name(i - 1)) + "\";\n";
    return text;
  }
};

TEST_F(LongPathsTest, NoReportOfAllNodes) {
  const std::string scene =
      folder_.Make("deep.ma", "//Maya ASCII 2024 scene\n" + Chain("top", 3000));
  ExpectFailure({"inspect", scene, "--json"},
                scene + ": the paths of the nodes to be named make more than 268435456 bytes");
  EXPECT_EQ(Lipvane({"inspect", scene}).status, 0);
}

TEST_F(LongPathsTest, NeitherAReportNorASceneOfManyCurves) {
  constexpr int kLevels = 1400;
  // Each name is there twice, so that it takes the whole path to tell which one is meant.
  const std::string scene = folder_.Make(
      "twins.ma", "//Maya ASCII 2024 scene\n" + Chain("a", kLevels) + Chain("b", kLevels));
  std::vector<std::string> bones;
  for (int i = 0; i < kLevels; ++i)
    bones.push_back(Name(i));
  const std::string lbp =
      folder_.Make("face.lbp", LbpText(bones, {std::vector<BoneLine>(bones.size())}));
  const std::string out = folder_.Path("out.ma");
  const std::string report = folder_.Path("report.json");
  const ProcessResult result =
      Lipvane({"run", scene, "-e", "facialAnim -import -lbp \"" + lbp + "\"", "-o", out, "--report",
               report});
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(Has(result.err, "Error: " + out +
                                  ": the paths that the new curves need make more "
                                  "than 268435456 bytes\nError: " +
                                  report +
                                  ": the paths of the nodes to be named make more than 268435456 "
                                  "bytes\n"))
      << result.err;
  EXPECT_FALSE(folder_.Has("out.ma") || folder_.Has("report.json"));
}

}  // namespace
}  // namespace lipvane::test
