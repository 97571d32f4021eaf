#include "lipvane/engine/expression.h"

namespace lipvane {

TExpressionInfo::TExpressionInfo() {
  Trail("TExpressionInfo::TExpressionInfo", [] {});
}

TExpressionInfo::~TExpressionInfo() noexcept(!kDestructorsRaise) {
  Trail("TExpressionInfo::~TExpressionInfo", [] {});
}

void TExpressionInfo::Blend(TBonePose* reference, std::vector<double>& weights, bool singlePose) {
  Trail("TExpressionInfo::Blend", [&] {
    if (reference == nullptr) {
      return;
    }
    for (int i = 0; i < static_cast<int>(boneNames.size()); ++i) {
      const TIndexedBone start = reference->GetBone(i);
      if (singlePose) {
        const TIndexedBone& only = GetPose(0).GetBone(i);
        StoreBlended(i, only.translation, only.rotation);
      } else {
        BlendBone(i, start, weights);
      }
    }
  });
}

}  // namespace lipvane
