#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "lipvane/host/standalone/limits.h"
#include "lipvane/host/standalone/scene.h"
#include "lipvane/host/standalone/units.h"
#include "tests/host/standalone/scene_text.h"

namespace lipvane::standalone {
namespace {

using Names = std::vector<std::string>;

TransformValues Values(const Scene& scene, const std::string& path, double frame,
                       Names* unread = nullptr) {
  return scene.ValuesAt(At(scene, path), frame,
                        [unread](const std::string& attribute, const std::string& driver) {
                          if (unread != nullptr) unread->push_back(attribute + " < " + driver);
                        });
}

/// A curve with a key at frames 0 and 10, linear between.
std::string Curve(const std::string& type, const std::string& name, const std::string& first,
                  const std::string& second) {
  return "createNode " + type + " -n \"" + name +
         "\";\n\tsetAttr \".tan\" 2;\n\tsetAttr \".wgt\" no;\n\tsetAttr -s 2 \".ktv[0:1]\"  0 " +
         first + " 10 " + second + ";\n";
}

/// What the host says when every channel of the node is given a curve.
Names WarningsOfCurves(Scene& scene, const std::string& path) {
  Names warnings;
  StandaloneHost host(scene, [&](const Message& message) { warnings.push_back(message.text); });
  host::Node node;
  EXPECT_TRUE(host.AttachDagNode(PathTo(host, path), node).ok());
  for (std::size_t i = 0; i < kChannelCount; ++i) {
    const auto curve = host.NewAnimCurve();
    curve->Create(node, host.FindAttribute(node, ChannelName(static_cast<Channel>(i))));
    curve->AddKeyframe(0, 0);
  }
  host.EndCommand();
  return warnings;
}

TEST(SceneValues, ReadsAllThatMakesALocalMatrix) {
  const Scene scene = Read(
      "createNode joint -n 'j'; setAttr -l on -k off '.t' -type 'double3' 1 2 3; "
      "setAttr '.r' -type 'double3' 90 0 -180; setAttr '.scaleY' 2; setAttr -cb on '.ro' 5; "
      "setAttr '.ra' -type 'double3' 0 90 0; setAttr '.jointOrient.jointOrientZ' 45; "
      "setAttr '.ssc' no; setAttr '.is' -type 'double3' 1 2 4; setAttr '.tx' -l off; "
      "setAttr '.tz' -1e-015; createNode transform -n 'g'; setAttr '.rp' -type 'double3' 1 0 0; "
      "setAttr '.rpt' -type 'double3' 0 1 0; setAttr '.sp' -type 'double3' 0 0 1; "
      "setAttr '.sptx' 5; setAttr '.sh' -type 'double3' 0.1 0.2 0.3; setAttr '.shearXZ' inf;");
  const double right = 90 * kRadiansPerDegree;
  const TransformValues joint = Values(scene, "|j", 0);
  EXPECT_TRUE(joint.isJoint);
  EXPECT_EQ(joint.translate, (Vector{1, 2, -1e-15}));
  EXPECT_EQ(joint.rotate, (Vector{right, 0, -2 * right}));
  EXPECT_EQ(joint.scale, (Vector{1, 2, 1}));
  EXPECT_EQ(joint.rotateOrder, RotateOrder::kZyx);
  EXPECT_EQ(joint.rotateAxis, (Vector{0, right, 0}));
  EXPECT_EQ(joint.jointOrient, (Vector{0, 0, right / 2}));
  EXPECT_EQ(joint.inverseScale, (Vector{1, 2, 4}));
  EXPECT_FALSE(joint.segmentScaleCompensate);
  const TransformValues group = Values(scene, "|g", 0);
  EXPECT_FALSE(group.isJoint);
  EXPECT_EQ(group.rotatePivot, (Vector{1, 0, 0}));
  EXPECT_EQ(group.rotatePivotTranslate, (Vector{0, 1, 0}));
  EXPECT_EQ(group.scalePivot, (Vector{0, 0, 1}));
  EXPECT_EQ(group.scalePivotTranslate, (Vector{5, 0, 0}));
  EXPECT_EQ(group.shear[0], 0.1);
  EXPECT_GT(group.shear[1], 1e300);
  EXPECT_TRUE(scene.ReadingNotes().empty());
}

TEST(SceneValues, DividesByTheScaleOfTheParentThatIsConnected) {
  const Scene scene = Read(
      "createNode joint -n 'a'; setAttr '.s' -type 'double3' 2 3 4; "
      "createNode joint -n 'b' -p 'a'; createNode joint -n 'c' -p 'a'; " +
      Curve("animCurveTU", "s", "1", "3") + "connectAttr 's.o' 'a.sx'; connectAttr 'a.s' 'b.is';");
  EXPECT_EQ(Values(scene, "|a|b", 10).inverseScale, (Vector{3, 3, 4}));
  EXPECT_EQ(Values(scene, "|a|c", 10).inverseScale, (Vector{1, 1, 1}));
}

TEST(SceneValues, WarnOnceACommandWhenTheyAreNotFinite) {
  Scene scene = Read(
      "createNode joint -n 'a'; createNode joint -n 'b' -p 'a'; setAttr '.ty' nan; "
      "createNode joint -n 'c' -p 'a'; setAttr '.sx' inf;");
  Names warnings;
  StandaloneHost host(scene, [&](const Message& message) { warnings.push_back(message.text); });
  const auto ask = [&] {
    for (const char* path : {"|a", "|a|b", "|a|c"}) {
      host::Node node;
      host::Matrix matrix;
      host.AttachDagNode(PathTo(host, path), node);
      host.LocalMatrix(node, matrix);
    }
  };
  ask();
  ask();
  ask();
  const std::string end = " has a local matrix that is not finite: so is what is made from it";
  EXPECT_EQ(warnings, (Names{"|a|b" + end, "|a|c" + end}));
  host.BeginCommand();
  ask();
  EXPECT_EQ(warnings.size(), 4u);
}

TEST(SceneValues, LocksComponentsAndCompounds) {
  const Scene scene = Read(
      "createNode joint -n 'j'; setAttr -l on '.t'; setAttr -lock true '.rx'; "
      "setAttr '.ry' -l on 4; setAttr -l on '.ry'; setAttr -l off '.ry'; setAttr -l on '.s'; "
      "setAttr 'j.s' -l off; setAttr -k off '.rz';");
  std::string locked;
  for (std::size_t i = 0; i < kChannelCount; ++i) {
    locked += scene.IsLocked(At(scene, "|j"), static_cast<Channel>(i)) ? '1' : '0';
  }
  EXPECT_EQ(locked, "111100000");
}

TEST(SceneCurves, ReadsKeysInAnyShape) {
  const Scene scene = Read(
      "createNode joint -n 'j'; createNode animCurveTA -n 'c'; setAttr '.tan' 10; "
      "setAttr -s 4000000000 '.ktv[0:1]'  0 90 1.5 -180; setAttr '.keyTimeValue[3]'  -2 45; "
      "setAttr -s 4 '.ktv[2]' 1.5 360; setAttr -s 4 '.kit[1:3]'  1 1 18; "
      "setAttr -s 4 '.kot[2]'  5; setAttr -s 4 '.kix[2:3]'  0.5 1; "
      "setAttr -s 4 '.kiy[2]'  -0.25; setAttr -l on '.ktv'; setAttr '.kit[0]' -l on; "
      "setAttr '.pre' 3; setAttr '.postInfinity' 4; connectAttr 'c.output' 'j.rotateY';");
  const lipvane::standalone::Curve* const curve = scene.CurveOf(At(scene, "|j"), Channel::kRotateY);
  ASSERT_NE(curve, nullptr);
  ASSERT_EQ(curve->keys.size(), 3u);
  EXPECT_EQ(curve->keys[0].time, -2);
  EXPECT_EQ(curve->keys[0].inType, Tangent::kAuto);
  EXPECT_EQ(curve->keys[1].outType, Tangent::kClamped);
  EXPECT_EQ(curve->keys[2].time, 1.5);
  EXPECT_EQ(curve->keys[2].value, 360 * kRadiansPerDegree);
  EXPECT_EQ(curve->keys[2].inType, Tangent::kFixed);
  EXPECT_EQ(curve->keys[2].outType, Tangent::kStep);
  EXPECT_EQ(curve->keys[2].inTangent.x, 0.5);
  EXPECT_EQ(curve->keys[2].inTangent.y, -0.25);
  EXPECT_TRUE(curve->weighted);
  EXPECT_EQ(curve->before, Infinity::kCycle);
  EXPECT_EQ(curve->after, Infinity::kCycleOffset);
  EXPECT_TRUE(scene.ReadingNotes().empty());
}

TEST(SceneCurves, PassesOverKeysThatAreNotUnderstood) {
  for (const char* keys :
       {"\".ktv[0:1]\" 1 2 3", "\".ktv\" 1 2", "\".ktv[0]\" nan 2", "\".ktv[0]\" 1 two",
        "\".ktv[4294967296]\" 1 2", "\".ktv[0].kx\" 1", "\".kit[0]\" x", "\".ktv[1:0]\" 1 2",
        "\".ktv[0]\" \"\\t1\" 2", "\".ktv[0].kt\" nan", "\".kit[0].kv\" 1"}) {
    Scene scene = Read("createNode animCurveTA -n 'c';\nsetAttr " + std::string(keys) +
                       ";\ncreateNode joint -n 'j';\nconnectAttr 'c.o' 'j.rx';\n");
    ASSERT_EQ(scene.ReadingNotes().size(), 1u) << keys;
    EXPECT_EQ(scene.ReadingNotes()[0],
              "test.ma:5: keys of \"c\" are not understood and are passed over");
    // Rewriting the others would shift what those mean.
    EXPECT_EQ(scene.RefusalOf(At(scene, "|j"), Channel::kRotateX), Refusal::kUnreadKeys) << keys;
    EXPECT_FALSE(scene.AttachCurve(At(scene, "|j"), Channel::kRotateX)) << keys;
    EXPECT_THROW(scene.SetKey(At(scene, "|j"), Channel::kRotateX, 1, 1), std::logic_error) << keys;
  }
}

TEST(SceneDrivers, FollowsCurvesThroughWhatPassesThemOn) {
  const Scene scene = Read(
      "createNode joint -n 'j'; " + Curve("animCurveTA", "direct", "0", "90") +
      Curve("animCurveTL", "inSet", "0", "4") + Curve("animCurveTU", "plain", "0", "2") +
      Curve("animCurveTU", "degrees", "0", "30") +
      "createNode character -n 'set'; createNode unitConversion -n 'u'; setAttr '.cf' 0.5; "
      "connectAttr ':time1.o' 'direct.i'; connectAttr -f 'direct.o' 'j.rx'; "
      "connectAttr 'inSet.o' 'set.lv[3]' -na; connectAttr 'set.lv[3]' '|j.tx'; "
      "connectAttr 'plain.o' 'u.i'; connectAttr 'u.o' ':j.ry'; connectAttr 'degrees.o' 'j.rz';");
  const NodeId joint = At(scene, "|j");
  const TransformValues values = Values(scene, "|j", 10);
  EXPECT_DOUBLE_EQ(values.rotate[0], 90 * kRadiansPerDegree);
  EXPECT_EQ(values.translate[0], 4);
  EXPECT_EQ(values.rotate[1], 1);
  EXPECT_DOUBLE_EQ(values.rotate[2], 30 * kRadiansPerDegree);
  for (const Channel channel :
       {Channel::kRotateX, Channel::kTranslateX, Channel::kRotateY, Channel::kRotateZ}) {
    EXPECT_EQ(scene.DriverOf(joint, channel), Driver::kCurve);
  }
  EXPECT_EQ(scene.DriverName(joint, Channel::kTranslateX), "inSet");
  EXPECT_EQ(scene.DriverOf(joint, Channel::kTranslateY), Driver::kNone);
  // A curve is shown as its channel meets it.
  EXPECT_EQ(scene.CurveOf(joint, Channel::kRotateY)->keys[1].value, 1);
  EXPECT_EQ(scene.DrivenChannels().size(), 4u);
}

TEST(SceneDrivers, AreSortedByTheBytesOfTheirPaths) {
  std::string text = "createNode animCurveTL -n 'k'; setAttr '.ktv[0]' 1 2;";
  const std::vector<std::string> paths = {"|a",   "|a!",   "|a!|b", "|a|b",  "|a|b|c", "|a|b~",
                                          "|a|c", "|a|ca", "|ab",   "|ab|a", "|a~",    "|a\xE4"};
  for (const std::string& path : paths) {
    const std::size_t bar = path.rfind('|');
    text += "createNode joint -n '" + path.substr(bar + 1) + "'";
    if (bar > 0) text += " -p '" + path.substr(0, bar) + "'";
    text += "; connectAttr 'k.o' '" + path + ".tx';";
  }
  const Scene scene = Read(text);
  std::vector<std::string> sorted;
  for (const auto& driven : scene.DrivenChannels())
    sorted.push_back(scene.FullPath(scene.FirstPath(driven.node)));
  std::vector<std::string> expected = paths;
  std::sort(expected.begin(), expected.end());
  EXPECT_EQ(sorted, expected);
}

TEST(SceneDrivers, KeysThroughAConversion) {
  Scene scene = Read("createNode joint -n 'j'; " + Curve("animCurveTU", "c", "0", "2") +
                     "createNode unitConversion -n 'u'; setAttr '.conversionFactor' 0.5; "
                     "connectAttr 'c.o' 'u.i'; connectAttr 'u.o' 'j.rx';");
  const NodeId joint = At(scene, "|j");
  EXPECT_EQ(scene.CurveOf(joint, Channel::kRotateX)->keys[1].value, 1);
  ASSERT_TRUE(scene.AttachCurve(joint, Channel::kRotateX));
  scene.SetKey(joint, Channel::kRotateX, 10, 3);
  EXPECT_EQ(scene.CurveOf(joint, Channel::kRotateX)->keys[1].value, 3);
  EXPECT_EQ(Values(scene, "|j", 10).rotate[0], 3);
  EXPECT_NE(Written(scene).find("0 0 10 6;"), std::string::npos);
}

TEST(SceneDrivers, FollowsALimitedWayAndNoRing) {
  const auto conversions = [](int count) {
    std::string text = "createNode joint -n 'j'; " + Curve("animCurveTL", "c", "1", "1");
    std::string from = "c.o";
    for (int i = 0; i < count; ++i) {
      const std::string name = "u" + std::to_string(i);
      text += "createNode unitConversion -n '" + name + "'; connectAttr '" + from + "' '" + name +
              ".i'; ";
      from = name + ".o";
    }
    return text + "connectAttr '" + from + "' 'j.tx'; ";
  };
  const auto driver = [](const std::string& text) {
    const Scene scene = Read(text);
    Values(scene, "|j", 1);
    return scene.DriverOf(At(scene, "|j"), Channel::kTranslateX);
  };
  EXPECT_EQ(driver(conversions(kMaxDriverSteps - 1)), Driver::kCurve);
  EXPECT_EQ(driver(conversions(kMaxDriverSteps)), Driver::kOther);
  EXPECT_EQ(driver(conversions(3) + "connectAttr -f 'u2.o' 'u0.i';"), Driver::kOther);
}

TEST(SceneDrivers, SaysWhyAChannelGetsNoKeys) {
  Scene scene =
      Read("createNode joint -n 'j'; setAttr -l on '.ty'; " + Curve("animCurveTL", "c", "0", "2") +
           Curve("animCurveTL", "odd", "0", "2") +
           "setAttr '.ktv[2].x' 3; createNode unitConversion -n 'u'; setAttr '.cf' 0; "
           "connectAttr 'c.o' 'u.i'; connectAttr 'u.o' 'j.tx'; connectAttr 'gone.o' 'j.tz'; "
           "connectAttr 'odd.o' 'j.sx';");
  EXPECT_EQ(
      WarningsOfCurves(scene, "|j"),
      Names{
          "|j loses keys: translateX driven by c through a conversion that loses its values; "
          "translateY locked; translateZ driven by gone (not a curve over time); scaleX driven by "
          "odd, a curve with keys that are not understood"});
}

TEST(SceneDrivers, SaysWhichChannelsShareACurve) {
  Scene scene = Read(
      "createNode joint -n 'j'; createNode joint -n 'k'; " + Curve("animCurveTL", "two", "0", "2") +
      Curve("animCurveTA", "three", "0", "2") +
      "createNode character -n 's'; connectAttr 'three.o' 's.av[1]'; "
      "connectAttr 's.av[1]' 'j.rx'; connectAttr 'three.o' 'j.rz'; connectAttr 'three.o' 'k.rx'; "
      "connectAttr 'two.o' 'k.tx'; connectAttr 'two.o' 'j.tx'; connectAttr 'j.tx' 'k.ty';");
  const NodeId joint = At(scene, "|j");
  const auto sharers = scene.SharersOf(joint, Channel::kRotateX);
  ASSERT_EQ(sharers.size(), 2u);
  EXPECT_EQ(sharers[0].channel, Channel::kRotateZ);
  EXPECT_EQ(sharers[1].node, At(scene, "|k"));
  EXPECT_EQ(WarningsOfCurves(scene, "|j"),
            (Names{"|j.translateX shares its curve two with |k.translateX: keys set on one show on "
                   "both",
                   "|j.rotateX shares its curve three with |j.rotateZ and 1 more: keys set on one "
                   "show on all"}));
  EXPECT_TRUE(scene.SharersOf(joint, Channel::kScaleX).empty());
}

TEST(SceneDrivers, SaysWhatItCannotEvaluate) {
  const Scene scene = Read(
      "createNode joint -n 'j'; setAttr '.t' -type 'double3' 1 2 3; "
      "createNode parentConstraint -n 'con' -p 'j'; createNode animCurveUA -n 'driven'; "
      "createNode animCurveTA -n 'warped'; setAttr '.ktv[0]' 1 1; createNode expression -n 'e'; "
      "connectAttr 'con.ct' 'j.t'; connectAttr 'driven.o' 'j.rx'; "
      "connectAttr 'e.out[0]' 'warped.i'; connectAttr 'warped.o' 'j.ry'; "
      "connectAttr 'xRN.phl[2]' 'j.sx'; connectAttr 'ref:ctl.ssc' 'j.ssc'; "
      "connectAttr 'con.x' 'j.rpx'; connectAttr 'con.x' 'j.shxy';");
  Names unread;
  EXPECT_EQ(Values(scene, "|j", 1, &unread).translate, (Vector{1, 2, 3}));
  EXPECT_EQ(unread,
            (Names{"segmentScaleCompensate < ref:ctl", "translateX < con", "translateY < con",
                   "translateZ < con", "rotateX < driven", "rotateY < warped", "scaleX < xRN"}));
  const NodeId joint = At(scene, "|j");
  EXPECT_EQ(scene.DriverOf(joint, Channel::kRotateX), Driver::kOther);
  EXPECT_EQ(scene.DriverName(joint, Channel::kScaleX), "xRN");
  EXPECT_EQ(scene.CurveOf(joint, Channel::kRotateY), nullptr);
}

TEST(SceneDrivers, TheLastConnectionCounts) {
  const Scene scene =
      Read("createNode joint -n 'j'; " + Curve("animCurveTL", "a", "1", "1") +
           Curve("animCurveTL", "b", "2", "2") +
           "connectAttr 'a.o' 'j.tx'; connectAttr -f 'b.o' 'j.tx'; connectAttr 'a.o' 'j.ty'; "
           "disconnectAttr 'b.o' 'j.ty'; connectAttr 'a.o' 'j.tz'; disconnectAttr 'a.o' 'j.tz';");
  EXPECT_EQ(Values(scene, "|j", 0).translate, (Vector{2, 1, 0}));
}

TEST(SceneDrivers, EvaluatesBlendsAndSetsButDoesNotKeyThem) {
  const Scene scene = Read(
      "createNode joint -n 'j'; createNode joint -n 'k'; " + Curve("animCurveTL", "c", "1", "5") +
      "createNode pairBlend -n 'p'; setAttr '.w' 0.25; setAttr '.itx2' 9; "
      "setAttr '.inRotateX1' 90; setAttr '.ri' 1; setAttr '.txm' 0; "
      "createNode character -n 'set'; setAttr -s 2 '.av[1:2]' 45 90; connectAttr 'c.o' 'p.itx1'; "
      "connectAttr 'p.ot' 'j.t'; connectAttr 'p.orx' 'j.rx'; connectAttr 'set.av[2]' 'j.ry'; "
      "connectAttr 'j.tx' 'k.tx';");
  Names unread;
  const TransformValues values = Values(scene, "|j", 10, &unread);
  EXPECT_EQ(values.translate[0], 5 * 0.75 + 9 * 0.25);
  EXPECT_EQ(values.rotate[1], 90 * kRadiansPerDegree);
  EXPECT_EQ(unread, Names{"rotateX < p"});
  EXPECT_EQ(Values(scene, "|k", 10).translate[0], 6);
  EXPECT_EQ(scene.DriverOf(At(scene, "|j"), Channel::kTranslateX), Driver::kOther);
  EXPECT_EQ(scene.DriverOf(At(scene, "|j"), Channel::kRotateY), Driver::kOther);
  EXPECT_EQ(scene.DriverName(At(scene, "|j"), Channel::kTranslateX), "p");
}

TEST(SceneDrivers, EndsInRings) {
  std::string text =
      "createNode joint -n \"a\";\nsetAttr \".tx\" 3;\ncreateNode joint -n \"b\";\n"
      "connectAttr \"a.tx\" \"b.tx\";\nconnectAttr \"b.tx\" \"a.tx\";\n"
      "createNode character -n \"s\";\nconnectAttr \"s.lv[1]\" \"s.lv[2]\";\n"
      "connectAttr \"s.lv[2]\" \"s.lv[1]\";\nconnectAttr \"s.lv[1]\" \"a.ty\";\n"
      "createNode pairBlend -n \"p\";\nsetAttr \".w\" 0.5;\nconnectAttr \"p.otx\" \"p.itx1\";\n"
      "connectAttr \"p.otx\" \"p.itx2\";\nconnectAttr \"p.otx\" \"a.tz\";\n";
  const Scene scene = Read(text);
  Names unread;
  Values(scene, "|a", 0, &unread);
  EXPECT_EQ(unread.size(), 3u);
  EXPECT_EQ(scene.DriverOf(At(scene, "|a"), Channel::kTranslateY), Driver::kOther);
}

}  // namespace
}  // namespace lipvane::standalone
