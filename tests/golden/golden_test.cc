// The frames of the examples are those that were kept: with every compiler, however it optimises.

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "lipvane/engine/controller.h"
#include "lipvane/formats/lbp_face.h"
#include "lipvane/formats/ltf.h"
#include "tests/support/near_text.h"
#include "tests/support/temporary_folder.h"

namespace lipvane {
namespace {

const std::string kValues = LIPVANE_SOURCE_DIR "/tests/golden/values/";

/// The rows that "lipvane play --fps 4" makes of it, without their title.
std::string Play(const std::string& ltfFileName) {
  TController face;
  PhonemeMapping mapping;
  TAnimation animation;
  EXPECT_TRUE(LoadFace(kValues + "face.lbp", face, mapping));
  EXPECT_TRUE(LoadLtfFile(ltfFileName, animation));
  TBonePose pose;
  face.InitializeBones(pose);
  std::vector<double> weights;
  std::ostringstream rows;
  rows.precision(17);
  for (int time = 0; time <= animation.length; time += 250) {
    const bool isOutside = face.UpdateFacialAnim(animation, time, weights, pose);
    rows << time << (isOutside ? ",0" : ",1");
    for (const double weight : weights)
      rows << ',' << weight;
    for (int i = 0; i < face.ExpressionCount(); ++i)
      rows << ',' << face.GetExpression(i)->weight;
    for (const TIndexedBone& bone : pose.Bones()) {
      const Vector3& t = bone.translation;
      const Quaternion& r = bone.rotation;
      for (const float part : {t.x, t.y, t.z, r.w, r.x, r.y, r.z})
        rows << ',' << part;
    }
    rows << '\n';
  }
  return rows.str();
}

std::string Rows(const std::string& fileName) {
  const std::string table = test::FileContent(kValues + fileName);
  return table.substr(table.find('\n') + 1);
}

TEST(Golden, FramesOfTheExamplesAreAsTheyWere) {
  ASSERT_GT(Rows("hello.csv").size(), 50000u);
  EXPECT_TRUE(
      test::SameButForRounding(Play(LIPVANE_SOURCE_DIR "/examples/hello.ltf"), Rows("hello.csv")));
  EXPECT_TRUE(test::SameButForRounding(Play(kValues + "spoken.ltf"), Rows("spoken.csv")));
}

}  // namespace
}  // namespace lipvane
