#include <gtest/gtest.h>

#include "lipvane/plugin/facial_anim_command.h"
#include "tests/support/recording_host.h"

namespace lipvane::plugin {
namespace {

using test::RecordingHost;
using test::Words;

TEST(Arguments, EveryFlagReachesItsField) {
  RecordingHost host({});
  FacialAnimCommand command(host);
  EXPECT_TRUE(
      command.ParseArgs(Words({"-morph", "-imp", "-select", "-lbpfile", "a", "-ltf", "b"})).ok());
  EXPECT_TRUE(command.MorphFlag());
  EXPECT_TRUE(command.ImportFlag());
  EXPECT_TRUE(command.SelectFlag());
  EXPECT_EQ(command.LbpFileName(), "a");
  EXPECT_EQ(command.LtfFileName(), "b");
  // The fields are set anew, the flags included.
  EXPECT_TRUE(command.ParseArgs(Words({"-lbp", "c"})).ok());
  EXPECT_FALSE(command.MorphFlag() || command.ImportFlag() || command.SelectFlag());
  EXPECT_EQ(command.LbpFileName(), "c");
  EXPECT_EQ(command.LtfFileName(), "b");
}

TEST(Arguments, EveryExpressionIsCollected) {
  const auto names = [](std::vector<std::string> words) {
    RecordingHost host({});
    FacialAnimCommand command(host);
    EXPECT_TRUE(command.ParseArgs(Words(std::move(words))).ok());
    EXPECT_EQ(command.ExpressionCount(), static_cast<int>(command.ExpressionNames().size()));
    return command.ExpressionNames();
  };
  using Names = std::vector<std::string>;
  EXPECT_EQ(names({"-exp", "A", "-expression", "B", "-exp"}), (Names{"A", "B"}));
  EXPECT_EQ(names({"-exp", "-exp", "-exp", "C"}), (Names{"-exp", "C"}));
  EXPECT_EQ(names({"-expr", "A"}), Names{});
}

}  // namespace
}  // namespace lipvane::plugin
