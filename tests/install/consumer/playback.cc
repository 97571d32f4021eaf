// A character with one bone, played for one frame: the engine needs no other library.
#include <vector>

#include "lipvane/engine/controller.h"

int main() {
  lipvane::TController controller;
  controller.BonePoseInfo()->AddBone("jaw");
  controller.BonePoseInfo()->GetPose(1).GetBone(0).translation.y = -4.0F;
  lipvane::TAnimation animation;
  animation.AddTrack(lipvane::TAnimationTrack());
  animation.GetTrack(0)->AddKey({0, 0.5});
  lipvane::TBonePose face;
  controller.InitializeBones(face);
  std::vector<double> weights;
  controller.UpdateFacialAnim(animation, 0.0, weights, face);
  return face.GetBone(0).translation.y == -2.0F ? 0 : 1;
}
