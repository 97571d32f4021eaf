// A character with one bone, played for one frame: the engine needs no other library.
#include <cmath>
#include <cstdio>
#include <vector>

#include "lipvane/engine/controller.h"
#include "lipvane/engine/exception.h"

int main() {
  try {
    lipvane::TController controller;
    lipvane::TBonePoseInfo& rig = *controller.BonePoseInfo();
    rig.AddBone("jaw");
    rig.GetPose(0).GetBone(0).translation.y = 0.0F;
    rig.GetPose(1).GetBone(0).translation.y = -4.0F;
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
    if (std::abs(face.GetBone(0).translation.y + 2.0F) < 1e-5F) return 0;
    std::puts("The jaw is not half way down");
  } catch (const lipvane::TamskException& failure) {
    std::puts(failure.message.c_str());
  }
  return 1;
}
