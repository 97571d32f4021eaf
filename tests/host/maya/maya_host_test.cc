#include "lipvane/host/maya/maya_host.h"

#include <gtest/gtest.h>

#include "tests/maya_standin/standin.h"

namespace lipvane::maya {
namespace {

class MayaHostTest : public testing::Test {
 protected:
  test::RecordingHost host_{{}};
  test::RecordingStandinScene scene_{host_};
  test::Standin standin_{scene_};
};

TEST_F(MayaHostTest, ATransformationHasItsPartsInOrder) {
  const host::Matrix matrix{{{2, 0, 0, 0}, {0, 3, 0, 0}, {0, 0, 4, 0}, {5, 6, 7, 1}}};
  const host::Transformation parts = MayaHost().Decompose(matrix);
  EXPECT_EQ(parts.matrix, matrix);
  EXPECT_EQ(parts.translation, (std::array<double, 3>{5, 6, 7}));
  EXPECT_EQ(parts.scale, (std::array<double, 3>{2, 3, 4}));
}

TEST_F(MayaHostTest, ACurveThatWasNeverMadeTakesNoKeys) {
  MayaHost host;
  EXPECT_FALSE(host.NewAnimCurve()->AddKeyframe(0.0, 1.0).ok());
  EXPECT_TRUE(host.Keys().Lines().empty());
}

}  // namespace
}  // namespace lipvane::maya
