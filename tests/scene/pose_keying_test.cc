#include "lipvane/scene/pose_keying.h"

#include <Imath/ImathEuler.h>
#include <Imath/ImathMatrix.h>
#include <Imath/ImathMatrixAlgo.h>
#include <Imath/ImathQuat.h>
#include <gtest/gtest.h>

#include <random>

#include "tests/support/recording_host.h"

namespace lipvane::scene {
namespace {

// A joint stands as rotate axis * rotate * orient; the file holds that rotation with w negated.
// What is keyed is rotate axis * rotate, so a joint without a rotate axis gets its rotation back.
TEST(JointRotation, TakesTheOrientationOutOfThePose) {
  test::RecordingHost host({});
  std::mt19937 random(7);
  std::uniform_real_distribution<double> angle(-3.1, 3.1);
  const auto turn = [&] {
    return Imath::Eulerd(angle(random), angle(random), angle(random), Imath::Eulerd::XYZ)
        .toMatrix44();
  };
  for (int i = 0; i < 500; ++i) {
    const Imath::M44d axis = i % 2 == 0 ? Imath::M44d() : turn();
    const Imath::M44d rotate = turn();
    const Imath::M44d orient = turn();
    const Imath::Quatd pose = Imath::extractQuat(axis * rotate * orient);
    const Imath::Quatd orientation = Imath::extractQuat(orient);
    const auto angles =
        JointRotation(host,
                      Quaternion(static_cast<float>(-pose.r), static_cast<float>(pose.v.x),
                                 static_cast<float>(pose.v.y), static_cast<float>(pose.v.z)),
                      {orientation.r, orientation.v.x, orientation.v.y, orientation.v.z});
    const Imath::M44d keyed =
        Imath::Eulerd(angles[0], angles[1], angles[2], Imath::Eulerd::XYZ).toMatrix44();
    EXPECT_TRUE(keyed.equalWithAbsError(axis * rotate, 2e-6)) << i;
  }
}

}  // namespace
}  // namespace lipvane::scene
