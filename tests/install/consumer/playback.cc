// A character with one bone, played for one frame: what the smallest embedding program does.
#include <cmath>
#include <cstdio>
#include <vector>

#include "lipvane/engine/animation.h"
#include "lipvane/engine/bone_pose.h"
#include "lipvane/engine/controller.h"
#include "lipvane/engine/exception.h"
#include "lipvane/engine/expression.h"
#include "lipvane/engine/math.h"
#include "lipvane/engine/track.h"

namespace {

lipvane::TBonePose JawAt(float height) {
  lipvane::TIndexedBone jaw;
  jaw.translation = lipvane::Vector3(0.0F, height, 0.0F);
  lipvane::TBonePose pose;
  pose.AddBone(jaw);
  return pose;
}

}  // namespace

int main() {
  try {
    lipvane::TController controller;
    lipvane::TBonePoseInfo& rig = *controller.BonePoseInfo();
    rig.AddBone("jaw");
    rig.AddPose(JawAt(0.0F));
    rig.AddPose(JawAt(-4.0F));
    rig.AssignBoneIds({{"jaw", 1}});

    lipvane::TAnimationTrack track;
    track.AddKey({0, 0.5});
    track.AddKey({1000, 0.5});
    lipvane::TAnimation animation;
    animation.AddTrack(track);
    animation.Digest();

    lipvane::TBonePose face;
    controller.InitializeBones(face);
    std::vector<double> weights;
    controller.UpdateFacialAnim(animation, 500.0, weights, face);
    const float height = face.GetBone(0).translation.y;
    if (std::abs(height + 2.0F) > 1e-5F) {
      std::printf("The jaw is at %g, not -2\n", static_cast<double>(height));
      return 1;
    }
  } catch (const lipvane::TamskException& failure) {
    std::printf("%s\n", failure.message.c_str());
    return 1;
  }
  return 0;
}
