#include <gtest/gtest.h>

#include "tests/host/standalone/scene_text.h"

namespace lipvane::standalone {
namespace {

std::string SceneOf(const std::string& value) {
  return "createNode joint -n \"jaw\";\n\tsetAttr \".b\" -type \"string\" \"playbackOptions\";\n"
         "createNode script -n \"uiConfigurationScriptNode\";\n"
         "\tsetAttr \".b\" -type \"string\" \"playbackOptions -max 3\";\n"
         "createNode script -n \"sceneConfigurationScriptNode\";\n"
         "\tsetAttr \".b\" -type \"string\" " +
         value + " ;\n\tsetAttr \".st\" 6;\n// End\n";
}

TEST(PlaybackRange, GrowsAndNothingElseChanges) {
  struct Case {
    std::string before, after;
  };
  // Widened to hold 0.5 to 71.25.
  const std::vector<Case> cases = {
      {"\"playbackOptions -min 1 -max 24 -ast 1 -aet 48 \"",
       "\"playbackOptions -min 0 -max 72 -ast 0 -aet 72 \""},
      {"\"playbackOptions -min 1 -max 72 -ast 1 -aet 200 \"", ""},
      {"\"playbackOptions -aet  200.5 -by 1 -maxTime 7e1 -ast -5 -minTime -5\"",
       "\"playbackOptions -aet  200.5 -by 1 -maxTime 72 -ast -5 -minTime -5\""},
      {"\"playbackOptions -animationStartTime 1;\"",
       "\"playbackOptions -animationStartTime 0 -min 0 -max 72;\""},
      {"\"print 1; playbackOptions -max 5 -min 0; playbackOptions -max 6 ;\"",
       "\"print 1; playbackOptions -max 5 -min 0; playbackOptions -max 72 ;\""},
      {"\"\\tplaybackOptions -min 0\\n-max 24\\nprint \\\"-max 1; \\\" \"",
       "\"\\tplaybackOptions -min 0\\n-max 72\\nprint \\\"-max 1; \\\" \""},
      {"(\"playbackOptions -min 0 -max 2\" + \"4\")", "\"playbackOptions -min 0 -max 72\""},
      // Left alone: not understood, a question, none, nothing.
      {"\"playbackOptions -min 0 -max $end\"", ""},
      {"\"float $end = `playbackOptions -q -max`; playbackOptions -q -max 1\"", ""},
      {"\"\"", ""}};
  for (const Case& one : cases) {
    Scene scene = Read(SceneOf(one.before));
    scene.ExtendPlaybackRange(0.5, 30);
    scene.ExtendPlaybackRange(20, 71.25);
    EXPECT_EQ(Written(scene), kHeader + SceneOf(one.after.empty() ? one.before : one.after));
  }
}

TEST(PlaybackRange, TellsWhatItWas) {
  const auto extend = [](const std::string& value) {
    return Read(SceneOf("\"playbackOptions " + value + "\"")).ExtendPlaybackRange(0, 72);
  };
  const RangeChange later = extend("-min -3 -max 24");
  EXPECT_EQ(later.oldLast, 24.0);
  EXPECT_EQ(later.newLast, 72.0);
  EXPECT_FALSE(later.newFirst);
  EXPECT_FALSE(extend("-min 0 -max 72").newLast);
  Scene scene = Read(SceneOf("\"playbackOptions -max -3\""));
  scene.ExtendPlaybackRange(-0.0, -0.5);
  EXPECT_NE(Written(scene).find("\"playbackOptions -max 0 -min 0\""), std::string::npos);
  EXPECT_TRUE(extend("-max").isUnread);
  EXPECT_FALSE(Read("createNode joint -n 'jaw';").ExtendPlaybackRange(0, 72).newLast);
}

}  // namespace
}  // namespace lipvane::standalone
