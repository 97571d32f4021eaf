#include "lipvane/engine/controller.h"

#include <unordered_set>

#include "lipvane/engine/arrays.h"
#include "lipvane/engine/trace.h"

namespace lipvane {
namespace {

/// A frame that takes more than this of the rig's blend would show its rounding.
constexpr double kMostShareOfBlend = 2.0;

/// Identifiers in the order of first sight, each once.
class UniqueIds {
 public:
  void AddBonesOf(TBonePoseInfo& info) {
    for (int i = 0; i < static_cast<int>(info.boneNames.size()); ++i) {
      const int id = info.GetBoneIndex(i);
      if (seen_.insert(id).second) {
        Trace("[Lipvane]:\t Added bone with index %d", id);
        ids_.push_back(id);
      }
    }
  }

  const std::vector<int>& InOrder() const { return ids_; }

 private:
  std::vector<int> ids_;
  std::unordered_set<int> seen_;
};

}  // namespace

TController::~TController() noexcept(!kDestructorsRaise) {
  Trail("TController::~TController", [&] {
    DestroyElements(animations_);
    DestroyElements(expressions_);
  });
}

void TController::SetBonePoseInfo(const TBonePoseInfo& bonePoseInfo) {
  bonePoseInfo_ = bonePoseInfo;
}

void TController::AddExpression(const TExpressionInfo& expression) {
  Trail("TController::AddExpression", [&] { expressions_.push_back(expression); });
}

TExpressionInfo* TController::GetExpression(const std::string& expressionName) {
  return Trail("TController::GetExpression",
               [&] { return FindNamed(expressions_, expressionName); });
}

TExpressionInfo* TController::GetExpression(int i) {
  return Trail("TController::GetExpression", [&] { return ElementOrNull(expressions_, i); });
}

// cppcheck-suppress passedByValue ; the name may be that of the very expression that goes
void TController::DeleteExpression(std::string expressionName) {
  Trail("TController::DeleteExpression", [&] {
    const TExpressionInfo* found = FindNamed(expressions_, expressionName);
    if (found != nullptr) {
      expressions_.erase(expressions_.begin() + (found - expressions_.data()));
      animationsChanged_ = true;
    }
  });
}

void TController::AddAnimation(const TAnimation& animation) {
  Trail("TController::AddAnimation", [&] {
    animations_.push_back(animation);
    animations_.back().Digest();
    animationsChanged_ = true;
  });
}

TAnimation* TController::GetAnimation(int i) {
  return Trail("TController::GetAnimation", [&] { return ElementOrNull(animations_, i); });
}

void TController::DeleteAnimation(int i) {
  Trail("TController::DeleteAnimation", [&] {
    if (ElementOrNull(animations_, i) != nullptr) {
      animations_.erase(animations_.begin() + i);
      animationsChanged_ = true;
    }
  });
}

double TController::TotalAnimTime() const {
  return Trail("TController::TotalAnimTime", [&] {
    double total = 0.0;
    for (const TAnimation& animation : animations_) {
      total += animation.length;
    }
    return total;
  });
}

void TController::InitializeBones(TBonePose& out) {
  Trail("TController::InitializeBones", [&] {
    Trace("[Lipvane]: Initializing bones...");
    UniqueIds ids;
    Trace("[Lipvane]: Default Poses...");
    ids.AddBonesOf(bonePoseInfo_);
    Trace("[Lipvane]: Expressions...");
    int position = 0;
    for (TExpressionInfo& expression : expressions_) {
      Trace("[Lipvane]:\t Expression %d...", position++);
      ids.AddBonesOf(expression);
    }
    out = TBonePose();
    for (const int id : ids.InOrder()) {
      TIndexedBone bone;
      bone.boneIndex = id;
      out.AddBone(bone);
    }
    Trace("[Lipvane]: done with %d unique bones.", out.BoneCount());
  });
}

bool TController::UpdateFacialAnim(TAnimation& animation, double time, std::vector<double>& values,
                                   TBonePose& out) {
  return Trail("TController::UpdateFacialAnim", [&] {
    const bool outside = animation.ValuesAtTime(time, values);
    bonePoseInfo_.Blend(values);
    double shareOfSpeech = 1.0;  // at most, of any bone
    // Each weight is stored just before its own blend, so that a failure finds the frame before in
    // all that was not reached.
    for (TExpressionInfo& expression : expressions_) {
      expression.weight = animation.ExpressionValueAtTime(time, expression.name);
      if (expression.weight == 0.0) {
        continue;
      }
      if (expression.weight < 0.0) shareOfSpeech -= expression.weight;
      const bool singlePose = expression.poses.size() == 1;
      TBonePose& reference = singlePose ? bonePoseInfo_.GetPose(0) : expression.GetPose(0);
      // Deliberate: the poses of an expression that has several get the speech targets' weights.
      expression.Blend(&reference, values, singlePose);
    }
    // Known only now, and so rare that blending twice costs nobody anything.
    if (shareOfSpeech > kMostShareOfBlend) bonePoseInfo_.BlendExactly(values);
    FinalBlend(out);
    return outside;
  });
}

void TController::FinalBlend(TBonePose& out) {
  Trail("TController::FinalBlend", [&] {
    if (bonePoseInfo_.poses.empty()) {
      return;
    }
    composer_.Compose(bonePoseInfo_, expressions_, out);
  });
}

TBonePose TController::BlendedNeutralPose(std::size_t bonesLeftOut) {
  std::vector<double> none;
  bonePoseInfo_.Blend(none);
  TBonePose pose;
  const std::vector<TIndexedBone>& blended = bonePoseInfo_.blendedBones;
  for (std::size_t i = 0; i + bonesLeftOut < blended.size(); ++i) {
    pose.AddBone(blended[i]);
  }
  return pose;
}

TBonePose TController::GetNeutralPose() {
  return Trail("TController::GetNeutralPose", [&] { return BlendedNeutralPose(0); });
}

TBonePose TController::GetNeutralPoseWithoutHeadBone() {
  // Deliberate: the last bone is taken for the head, whatever its name.
  return Trail("TController::GetNeutralPoseWithoutHeadBone", [&] { return BlendedNeutralPose(1); });
}

}  // namespace lipvane
