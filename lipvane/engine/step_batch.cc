#include "lipvane/engine/step_batch.h"

#include "lipvane/engine/bone_pose.h"

namespace lipvane {

void StepBatch::Add(const wide::Step& step) {
  if (count_ == kMost) Flush();
  steps_[count_++] = step;
}

void StepBatch::Flush() {
  std::array<std::size_t, kMost> left;
  const std::size_t leftCount = wide::BestLoops().addSteps(steps_.data(), count_, left.data());
  for (std::size_t i = 0; i < leftCount; ++i) {
    const wide::Step& step = steps_[left[i]];
    // The loops have put there what it starts from.
    const TIndexedBone& base = *step.base;
    TIndexedBone target = *step.target;
    _Blend(target.translation, target.rotation, base.translation, base.rotation,
           base.rotation.Inverse(), step.to->translation, step.to->rotation, step.weight);
  }
  count_ = 0;
}

}  // namespace lipvane
