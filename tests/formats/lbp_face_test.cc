#include "lipvane/formats/lbp_face.h"

#include <gtest/gtest.h>

#include "tests/support/lbp_text.h"
#include "tests/support/temporary_folder.h"

namespace lipvane {
namespace {

using test::BoneLine;

BoneLine At(double x, double rotationX = 0) {
  return {{x, 0, 0}, {1, rotationX, 0, 0}};
}

TEST(LoadFaceTest, NumbersTheBonesAndMakesTheExpressions) {
  // Neutral, one speech target, five more poses; "lid" stands twice in the hierarchy.
  const std::string text = test::LbpText({"jaw", "lid", "lid", "head"},
                                         {{At(1), At(2), At(3), At(4)},
                                          {At(9), At(9), At(9), At(9)},
                                          {At(1), At(2), At(3), At(4.0000005)},
                                          {{{1, 0, 0}, {-1, 0, 0, 0}}, At(2), At(3), At(4)},
                                          {At(1, -1e-7), At(2), At(5), At(4)},
                                          {At(1), At(2), At(3), At(4)},
                                          {At(8), At(8), At(8), At(8)}});
  const test::TemporaryFolder folder;
  TController controller;
  PhonemeMapping mapping;
  ASSERT_TRUE(LoadFace(folder.Make("face.lbp", text), controller, mapping));
  EXPECT_EQ(mapping.PhonemeCount(), 43);
  EXPECT_EQ(mapping.weights[42], std::vector<float>{0.5F});
  EXPECT_EQ(controller.BonePoseInfo()->boneIds, (std::vector<int>{1, 2, 2, 4}));
  EXPECT_EQ(controller.BonePoseInfo()->poses.size(), 7U);

  ASSERT_EQ(controller.ExpressionCount(), 4);
  EXPECT_EQ(controller.GetExpression("Eyebrow_Raise_Left")->boneIds, std::vector<int>{4});
  // The same rotation by other numbers is not exactly the neutral one.
  EXPECT_EQ(controller.GetExpression("Eyebrow_Raise_Right")->boneIds, std::vector<int>{1});
  // What moves nothing is an expression all the same.
  EXPECT_TRUE(controller.GetExpression("Blink_Right")->boneIds.empty());
  EXPECT_EQ(controller.GetExpression("Blink_Right")->poses.size(), 1U);
  TExpressionInfo& blink = *controller.GetExpression("Blink_Left");
  EXPECT_EQ(blink.boneNames, (std::vector<std::string>{"jaw", "lid"}));
  EXPECT_EQ(blink.boneIds, (std::vector<int>{1, 2}));
  ASSERT_EQ(blink.poses.size(), 1U);
  ASSERT_EQ(blink.GetPose(0).BoneCount(), 2);
  EXPECT_EQ(blink.GetPose(0).GetBone(0).rotation.x, -1e-7F);
  EXPECT_EQ(blink.GetPose(0).GetBone(1).translation.x, 5);
  EXPECT_EQ(controller.GetExpression(3)->name, "Blink_Right");
}

TEST(LoadFaceTest, ARefusalLeavesAllAsItWas) {
  TController controller;
  controller.BonePoseInfo()->AddBone("jaw");
  PhonemeMapping mapping;
  ReadProblem problem;
  EXPECT_FALSE(LoadFaceText("2\n1\nEat\n", controller, mapping, problem));
  EXPECT_EQ(problem.line, 3);
  EXPECT_FALSE(LoadFace("/no/such/file", controller, mapping));
  EXPECT_EQ(controller.BonePoseInfo()->boneNames.size(), 1U);
  EXPECT_EQ(controller.ExpressionCount(), 0);
  EXPECT_TRUE(mapping.speechTargets.empty());
}

}  // namespace
}  // namespace lipvane
