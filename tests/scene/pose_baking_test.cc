#include "lipvane/scene/pose_baking.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/support/recording_host.h"

namespace lipvane::scene {
namespace {

test::NodeDescription Node(const std::string& type, const std::string& path) {
  test::NodeDescription node;
  node.type = type;
  node.path = path;
  return node;
}

/// A pose turned about x by an angle, as pose files have it.
TIndexedBone Turned(double angle) {
  const auto half = static_cast<float>(angle / 2);
  return {{1, 2, 3}, {-std::cos(half), std::sin(half), 0, 0}, 0};
}

class PoseBaking : public testing::Test {
 protected:
  BoneBaker Baker(const std::string& name) { return {host_, DagSearch(host_, {name}), name}; }

  test::RecordingHost host_{{Node("joint", "|head"), Node("joint", "|head|eye"),
                             Node("transform", "|rest"), Node("joint", "|rest|eye"),
                             Node("joint", "|rest|lid"), Node("transform", "|rest|lid|lid")}};
};

TEST_F(PoseBaking, KeysTheLastJointOfTheName) {
  BoneBaker baker = Baker("eye");
  ASSERT_TRUE(baker.HasJoint());
  EXPECT_TRUE(baker.Key(Turned(0.5), 7).ok());
  ASSERT_EQ(host_.curves.size(), 6U) << "scale has no value to key";
  EXPECT_NEAR(host_.curves["|rest|eye.rotateX"][7], 0.5, 1e-6);
  EXPECT_EQ(host_.curves["|rest|eye.translateZ"][7], 3);

  for (const char* name : {"rest", "nose", "lid"}) {
    BoneBaker none = Baker(name);
    EXPECT_FALSE(none.HasJoint());
    EXPECT_FALSE(none.Key(Turned(0.5), 7).ok());
  }
  EXPECT_EQ(host_.curves.size(), 6U);
}

TEST_F(PoseBaking, AFrameThatIsNotFiniteIsLeftOut) {
  BoneBaker baker = Baker("head");
  TIndexedBone lost = Turned(3);
  lost.translation.y = std::numeric_limits<float>::infinity();
  TIndexedBone turnedToNothing = Turned(3);
  turnedToNothing.rotation.w = std::nanf("");
  EXPECT_TRUE(baker.Key(Turned(3), 0).ok());
  EXPECT_FALSE(baker.Key(lost, 1).ok());
  EXPECT_FALSE(baker.Key(turnedToNothing, 2).ok());
  EXPECT_TRUE(baker.Key(Turned(4), 3).ok());
  EXPECT_EQ(host_.curves["|head.translateX"].size(), 2U);
  EXPECT_NEAR(host_.curves["|head.rotateX"][3], 4, 1e-5) << "nearest to the last that was keyed";
}

}  // namespace
}  // namespace lipvane::scene
