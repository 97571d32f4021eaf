// The main job on the example face: export, import onto the bare rig, save, export again.

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <sstream>

#include "lipvane/host/standalone/interpreter.h"
#include "lipvane/host/standalone/scene.h"
#include "lipvane/plugin/registration.h"
#include "tests/support/temporary_folder.h"

namespace lipvane::standalone {
namespace {

const std::string kExamples = LIPVANE_SOURCE_DIR "/examples/";

bool Succeeds(Scene& scene, const std::vector<std::string>& words) {
  std::vector<Message> messages;
  Interpreter interpreter(scene, [&](const Message& m) { messages.push_back(m); });
  plugin::InitializePlugin(interpreter);
  return !interpreter.Run(words).Failed() && messages.empty();
}

bool Export(Scene& scene, const std::string& fileName) {
  std::string bones;
  std::ifstream in(kExamples + "bones.txt");
  std::getline(in, bones);
  return Succeeds(
      scene, {"demBonesExportPoses", "-bl", bones, "-hb", "head", "-lbp", fileName, "-np", "20"});
}

TEST(Example, ExportsTheSamePosesAgainAfterAnImport) {
  const test::TemporaryFolder folder;
  const std::string first = folder.Path("first.lbp");
  const std::string second = folder.Path("second.lbp");
  Scene posed = Scene::Open(kExamples + "face_poses.ma");
  ASSERT_TRUE(Export(posed, first));

  Scene rig = Scene::Open(kExamples + "face_rig.ma");
  ASSERT_TRUE(rig.DrivenChannels().empty());
  ASSERT_TRUE(Succeeds(rig, {"facialAnim", "-import", "-lbp", first}));
  std::ostringstream saved;
  rig.Write(saved);
  Scene keyed = Scene::Parse(saved.str(), "keyed.ma");
  ASSERT_TRUE(Export(keyed, second));

  std::istringstream a(test::FileContent(first));
  std::istringstream b(test::FileContent(second));
  int numbers = 0;
  for (std::string wordA, wordB; a >> wordA;) {
    ASSERT_TRUE(b >> wordB);
    std::istringstream inA(wordA);
    std::istringstream inB(wordB);
    double numberA = 0;
    double numberB = 0;
    if (inA >> numberA && inB >> numberB) {
      ++numbers;
      ASSERT_NEAR(numberA, numberB, 1e-4) << numbers;
    } else {
      ASSERT_EQ(wordA, wordB);
    }
  }
  EXPECT_GT(numbers, 20 * 40 * 26);
  std::string rest;
  EXPECT_FALSE(b >> rest);
}

// Twenty poses of a face with the head above all others, each moved from neutral by something.
TEST(Example, HoldsTwentyPosesThatDiffer) {
  Scene scene = Scene::Open(kExamples + "face_poses.ma");
  std::size_t joints = 0;
  for (NodeId node = 0; node < scene.NodeCount(); ++node) {
    if (scene.Kind(node) == NodeKind::kJoint) ++joints;
  }
  EXPECT_GE(joints, 35u);
  EXPECT_LE(joints, 60u);
  for (int pose = 1; pose < 20; ++pose) {
    double most = 0;
    for (const auto& driven : scene.DrivenChannels()) {
      const Curve& curve = *driven.curve;
      most = std::max(most, std::abs(curve.ValueAt(10.0 * pose) - curve.ValueAt(0)));
    }
    EXPECT_GT(most, 0.05) << pose;
  }
}

}  // namespace
}  // namespace lipvane::standalone
