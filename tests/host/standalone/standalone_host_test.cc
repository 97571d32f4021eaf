#include "lipvane/host/standalone/standalone_host.h"
#include "lipvane/host/standalone/references.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <map>
#include <string>
#include <vector>

#include "tests/host/standalone/scene_text.h"
#include "tests/support/embedded_scene.h"

namespace lipvane::standalone {
namespace {

constexpr double kPi = 3.14159265358979323846;

constexpr char kScene[] = R"(//Maya ASCII 2024 scene
currentUnit -l centimeter -a degree -t film;
file -r -ns "body" -rfn "bodyRN" "scenes/body.ma";
createNode transform -n "head";
createNode mesh -n "headShape" -p "head";
createNode joint -n "jaw" -p "head";
	setAttr ".t" -type "double3" 1 2 3 ;
	setAttr ".jo" -type "double3" 0 0 90 ;
createNode joint -n "lip" -p "jaw";
	setAttr -l on ".rx";
createNode joint -n "a:lip" -p "jaw";
createNode transform -n "left";
createNode joint -n "eye" -p "left";
createNode transform -n "right";
createNode joint -n "eye" -p "right";
createNode joint -n "twin" -p "left";
parent -s -nc -r -add "|left|twin" "right";
createNode parentConstraint -n "aim" -p "|right|eye";
connectAttr "|right|eye|aim.crx" "|right|eye.rx";
createNode animCurveTL -n "jaw_tx";
	setAttr -s 2 ".ktv[0:1]"  0 1 10 5;
	setAttr ".tan" 2;
connectAttr "jaw_tx.o" "jaw.tx";
)";

/// Every walk says it.
constexpr char kReferenceWarning[] =
    "the nodes of the referenced file \"scenes/body.ma\" are missing: it is not read";

using Names = std::vector<std::string>;

class StandaloneHostTest : public testing::Test {
 protected:
  host::Node NodeAt(const std::string& path) {
    host::Node node;
    EXPECT_TRUE(host_.AttachDagNode(PathTo(host_, path), node).ok());
    return node;
  }

  std::unique_ptr<host::AnimCurve> CurveOn(const std::string& path, const std::string& attribute,
                                           bool works) {
    auto curve = host_.NewAnimCurve();
    const host::Node node = NodeAt(path);
    EXPECT_EQ(curve->Create(node, host_.FindAttribute(node, attribute)).ok(), works);
    return curve;
  }

  Names Selected() const { return test::SelectionOf(host_); }

  Scene scene_ = Scene::Parse(kScene, "test.ma");
  Names texts_;
  StandaloneHost host_{scene_, [this](const Message& message) { texts_.push_back(message.text); }};
};

TEST_F(StandaloneHostTest, NamesNodesTransformsAndParents) {
  EXPECT_EQ(host_.NodeName({}), "");
  EXPECT_EQ(host_.NodeName(NodeAt("|head|jaw|a:lip")), "a:lip");
  EXPECT_EQ(host_.NodeName(host_.ParentOf(NodeAt("|head"), 0)), "world");
  EXPECT_FALSE(host_.ParentOf(NodeAt(""), 0).object.has_value());
  EXPECT_EQ(host_.NodeName(host_.ParentOf(NodeAt("|left|twin"), 0)), "left");
  EXPECT_EQ(host_.NodeName(host_.ParentOf(NodeAt("|left|twin"), 1)), "right");
  EXPECT_FALSE(host_.ParentOf(NodeAt("|left|twin"), 2).object.has_value());
  host::Node node;
  EXPECT_TRUE(host_.TransformOf(PathTo(host_, "|head|headShape"), node).ok());
  EXPECT_EQ(host_.NodeName(node), "head");
  EXPECT_EQ(host_.TransformOf(PathTo(host_, ""), node), host::StatusCode::kInvalidParameter);
  EXPECT_EQ(host_.AttachDagNode({}, node), host::StatusCode::kInvalidParameter);
}

TEST_F(StandaloneHostTest, FindsChannelsOfTransformsAndJointsOnly) {
  const auto has = [&](const std::string& path, const std::string& name) {
    return host_.FindAttribute(NodeAt(path), name).object.has_value();
  };
  for (const char* name : {"translateX", "rotateZ", "scaleY", "tx", "rz", "sy"}) {
    EXPECT_TRUE(has("|head", name) && has("|head|jaw", name)) << name;
    EXPECT_FALSE(has("|head|headShape", name) || has("", name)) << name;
  }
  EXPECT_FALSE(has("|head|jaw", "visibility"));
}

TEST_F(StandaloneHostTest, EvaluatesAtTheCurrentTime) {
  host::Matrix matrix{};
  ASSERT_TRUE(host_.SetCurrentTime(5.0).ok());
  ASSERT_TRUE(host_.LocalMatrix(NodeAt("|head|jaw"), matrix).ok());
  EXPECT_NEAR(matrix[3][0], 3.0, 1e-12);
  EXPECT_NEAR(matrix[3][2], 3.0, 1e-12);
  EXPECT_NEAR(matrix[0][1], 1.0, 1e-12);  // the orientation turns x to y
  host::Rotation orientation;
  host::Status status;
  ASSERT_TRUE(host_.AttachJoint(NodeAt("|head|jaw"), status)->GetOrientation(orientation).ok());
  EXPECT_NEAR(orientation.w, std::cos(kPi / 4), 1e-12);
  EXPECT_NEAR(orientation.z, std::sin(kPi / 4), 1e-12);
  EXPECT_FALSE(host_.SetCurrentTime(std::numeric_limits<double>::infinity()).ok());
  EXPECT_EQ(host_.CurrentTime(), 5.0);

  for (const char* path : {"", "|head|headShape"}) {
    EXPECT_EQ(host_.AttachJoint(NodeAt(path), status), nullptr);
    EXPECT_FALSE(status.ok());
    ASSERT_TRUE(host_.LocalMatrix(NodeAt(path), matrix).ok());
    EXPECT_EQ(matrix[0][0] + matrix[1][1] + matrix[2][2] + matrix[3][3], 4.0);
  }
  EXPECT_EQ(texts_, Names{kReferenceWarning});
}

TEST_F(StandaloneHostTest, CurvesDriveChannels) {
  EXPECT_TRUE(CurveOn("|head|jaw", "ry", true)->AddKeyframe(20.0, 0.25).ok());
  const NodeId jaw = scene_.NodeOf(host_.FindPaths(NamePattern("jaw"))[0]);
  ASSERT_NE(scene_.CurveOf(jaw, Channel::kRotateY), nullptr);
  EXPECT_EQ(scene_.CurveOf(jaw, Channel::kRotateY)->ValueAt(20.0), 0.25);
  // A second curve on a channel is the first one.
  EXPECT_TRUE(CurveOn("|head|jaw", "tx", true)->AddKeyframe(10.0, 7.0).ok());
  EXPECT_EQ(scene_.CurveOf(jaw, Channel::kTranslateX)->keys.size(), 2U);
  EXPECT_EQ(scene_.CurveOf(jaw, Channel::kTranslateX)->ValueAt(10.0), 7.0);

  const auto curve = CurveOn("|head|jaw", "sx", true);
  EXPECT_FALSE(curve->AddKeyframe(0.0, std::nan("")).ok());
  EXPECT_TRUE(scene_.CurveOf(jaw, Channel::kScaleX)->keys.empty());
  EXPECT_FALSE(CurveOn("|head|headShape", "tx", false)->AddKeyframe(0.0, 1.0).ok());
  EXPECT_EQ(texts_, Names{kReferenceWarning});
}

TEST(MissingReferencesTest, AreOneSentenceHoweverManyThereAre) {
  std::string text;
  for (int i = 1; i <= 7; ++i)
    text += "file -r -ns 'n' -rfn 'nRN' 'rig" + std::to_string(i) + ".ma';\n";
  EXPECT_EQ(MissingReferences(Read(text)),
            "the nodes of 7 referenced files are missing: \"rig1.ma\", \"rig2.ma\", \"rig3.ma\", "
            "\"rig4.ma\", \"rig5.ma\" and 2 more are not read");
}

TEST_F(StandaloneHostTest, WarnsOnceACommand) {
  const std::string eye = "|right|eye.rotateX is driven by aim";
  const Names expected = {kReferenceWarning,
                          eye + ", which is not evaluated: its value in the file is used",
                          "|head|jaw|lip gets no keys: rotateX locked", "1 of 1 bones get no keys"};
  host::Matrix matrix{};
  for (int command = 0; command < 2; ++command) {
    for (int time = 0; time < 2; ++time) {
      EXPECT_FALSE(CurveOn("|head|jaw|lip", "rotateX", false)->AddKeyframe(0.0, 1.0).ok());
      CurveOn("|right|eye", "rx", false);
      host_.LocalMatrix(NodeAt("|right|eye"), matrix);
    }
    host_.EndCommand();
    EXPECT_EQ(texts_, expected);
    texts_.clear();
    host_.BeginCommand();
  }
}

TEST_F(StandaloneHostTest, SelectsByPatternInTheOrderOfTheWalk) {
  using host::ListAdjustment;
  EXPECT_TRUE(host_.SelectByName("jaw", ListAdjustment::kAddToList).ok());
  EXPECT_TRUE(host_.SelectByName("eye", ListAdjustment::kAddToList).ok());
  EXPECT_TRUE(host_.SelectByName("j?w", ListAdjustment::kAddToList).ok());
  EXPECT_EQ(Selected(), (Names{"|head|jaw", "|left|eye", "|right|eye"}));
  unsigned length = 0;
  EXPECT_TRUE(host_.GetSelectionLength(length).ok());
  EXPECT_EQ(length, 3U);

  for (const char* name : {"", "Jaw", "world", "ja", "jaw|", "head|lip", "|jaw"})
    EXPECT_FALSE(host_.SelectByName(name, ListAdjustment::kReplaceList).ok()) << name;
  EXPECT_EQ(Selected().size(), 3U);

  const std::map<std::string, Names> cases = {
      {"right|eye", {"|right|eye"}},
      {"|left|*", {"|left|eye", "|left|twin"}},
      {":jaw", {"|head|jaw"}},
      {"*l*p", {"|head|jaw|lip"}},  // a star stays in its namespace
      {"a:*", {"|head|jaw|a:lip"}},
      {"*:l*p", {"|head|jaw|a:lip"}},
      {"*e*d", {"|head"}}};
  for (const auto& [name, paths] : cases) {
    EXPECT_TRUE(host_.SelectByName(name, ListAdjustment::kReplaceList).ok()) << name;
    EXPECT_EQ(Selected(), paths) << name;
  }
  EXPECT_TRUE(host_.ClearSelection().ok());
  EXPECT_TRUE(Selected().empty());
  EXPECT_TRUE(host_.SelectByName("jaw", ListAdjustment::kAddToList).ok());
  EXPECT_EQ(Selected(), Names{"|head|jaw"});
}

}  // namespace
}  // namespace lipvane::standalone
