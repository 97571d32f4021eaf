#include "lipvane/engine/expression.h"

namespace lipvane {

TExpressionInfo::TExpressionInfo() {
  Trail("TExpressionInfo::TExpressionInfo", [] {});
}

TExpressionInfo::~TExpressionInfo() noexcept(!kDestructorsRaise) {
  Trail("TExpressionInfo::~TExpressionInfo", [] {});
}

// Every bit counts: a controller composes the result on another start than this one.

void TExpressionInfo::Blend(std::vector<double>& weights) {
  BlendExactly(weights);
}

void TExpressionInfo::Blend(TBonePose* reference, std::vector<double>& weights, bool singlePose) {
  Trail("TExpressionInfo::Blend", [&] {
    if (reference == nullptr) {
      return;
    }
    if (!singlePose) {
      BlendStepByStep(*reference, weights);
      return;
    }
    const int bones = static_cast<int>(boneNames.size());
    if (bones == 0) return;
    reference->GrowTo(bones);
    GetPose(0).GrowTo(bones);
    for (int i = 0; i < bones; ++i) {
      const TIndexedBone& only = poses[0].Bones()[static_cast<std::size_t>(i)];
      StoreBlended(i, only.translation, only.rotation);
    }
  });
}

}  // namespace lipvane
