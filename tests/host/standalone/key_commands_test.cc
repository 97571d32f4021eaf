#include <gtest/gtest.h>

#include "lipvane/host/standalone/interpreter.h"
#include "lipvane/host/standalone/mel.h"
#include "lipvane/host/standalone/units.h"
#include "tests/host/standalone/scene_text.h"

namespace lipvane::standalone {
namespace {

class KeyCommandsTest : public testing::Test {
 protected:
  /// The error that the line ends in, "" when it succeeds.
  std::string ErrorOf(const std::string& line) {
    std::string error;
    const auto knows = [&](const std::string& word) { return interpreter_.Knows(word); };
    for (const MelCommand& command : SplitMel({line, "test"}, knows)) {
      const CommandOutcome outcome = interpreter_.Run(command.words);
      if (outcome.Failed()) error = outcome.messages.at(0).text;
    }
    return error;
  }

  Scene scene_ = Read(
      "currentUnit -l meter;\n"
      "createNode joint -n 'jaw';\n"
      "  setAttr -l on '.ry';\n  setAttr '.tx' 0.5;\n"
      "createNode joint -n 'lip' -p 'jaw';\n"
      "createNode transform -n 'left';\ncreateNode joint -n 'eye' -p 'left';\n"
      "createNode joint -n 'eye';\n"
      "createNode aimConstraint -n 'aim' -p 'lip';\nconnectAttr 'aim.crx' 'lip.rx';\n"
      "createNode mesh -n 'skin' -p 'left';\n");
  Interpreter interpreter_{scene_, {}};
};

TEST_F(KeyCommandsTest, KeysInTheUnitsOfTheScene) {
  EXPECT_EQ(ErrorOf("setKeyframe -t 3 -time -1.5 -v 90 -at rz -attribute rotateX \"jaw\""), "");
  EXPECT_EQ(ErrorOf("setKeyframe -value 2 \"lip.ty\" -itt linear -ott step"), "");
  EXPECT_EQ(ErrorOf("select jaw; currentTime 7; setKeyframe -at translate"), "");
  const auto curves = test::CurvesOf(scene_);
  const double quarter = 90 * kRadiansPerDegree;
  const std::map<std::string, std::map<double, double>> expected = {
      {"|jaw.rotateX", {{-1.5, quarter}, {3, quarter}}},
      {"|jaw.rotateZ", {{-1.5, quarter}, {3, quarter}}},
      {"|jaw|lip.translateY", {{1, 200}}},
      {"|jaw.translateX", {{7, 50}}},
      {"|jaw.translateY", {{7, 0}}},
      {"|jaw.translateZ", {{7, 0}}}};
  EXPECT_EQ(curves, expected);
  const CurveKey key = scene_.CurveOf(At(scene_, "|jaw|lip"), Channel::kTranslateY)->keys[0];
  EXPECT_EQ(std::pair(key.inType, key.outType), std::pair(Tangent::kLinear, Tangent::kStep));
}

TEST_F(KeyCommandsTest, SaysWhatCannotBeKeyedAndKeysNothing) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"setKeyframe -v 1 -at rx nose", "No object matches name: nose"},
      {"setKeyframe -v 1 -at rx jaw eye", "More than one object matches name: eye"},
      {"setKeyframe -v 1 -at rx -at ry jaw", "setKeyframe: |jaw.rotateY is locked: no key is set"},
      {"setKeyframe -v 1 -at rotateX jaw lip",
       "setKeyframe: |jaw|lip.rotateX is driven by aim (not a curve over time): no key is set"},
      {"setKeyframe -v 1 \"jaw.jump\"",
       "setKeyframe: |jaw has no attribute \"jump\" that takes keys here: no key is set"},
      {"setKeyframe -at tx skin",
       "setKeyframe: |left|skin has no attribute \"tx\" that takes keys here: no key is set"},
      {"setKeyframe -t 1 -v 1",
       "setKeyframe: nothing is selected, and no objects are given: no "
       "key is set"},
      {"setKeyframe -t soon -v 1 \"jaw.tx\"",
       "setKeyframe: \"soon\" is not a frame: no key is set"},
      {"setKeyframe -v 1e308 \"jaw.tx\"",
       "setKeyframe: |jaw.translateX has no finite value: no key is set"},
      {"setKeyframe -itt soft \"jaw.tx\"",
       "setKeyframe: \"soft\" is no type of tangent: no key is set"},
      {"getAttr \"nose.tx\"", "No object matches name: nose"},
      {"getAttr \"eye.tx\"", "More than one object matches name: eye"},
      {"getAttr \"jaw.jump\"", "getAttr: no attribute that is known here matches name: jaw.jump"}};
  for (const auto& [line, error] : cases)
    EXPECT_EQ(ErrorOf(line), error);
  EXPECT_TRUE(scene_.DrivenChannels().empty());
  EXPECT_EQ(ErrorOf("getAttr \"|left|eye.rotate\"; undoInfo -openChunk -chunkName \"keys\""), "");
}

}  // namespace
}  // namespace lipvane::standalone
