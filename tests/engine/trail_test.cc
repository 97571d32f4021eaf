#include "lipvane/engine/trail.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "lipvane/engine/controller.h"
#include "lipvane/engine/trace.h"

namespace lipvane {
namespace {

std::string armedEntry;                   // the entry whose next method raises
void (*raise)() = nullptr;                // how it does
std::vector<std::string> enteredMethods;  // since the test began
std::vector<std::string> tracedLines;

void OnEntry(const char* entry) {
  enteredMethods.emplace_back(entry);
  if (armedEntry == entry) {
    armedEntry.clear();  // once: a destructor must not raise while the failure is on its way
    raise();
  }
}

class TrailTest : public testing::Test {
 protected:
  TrailTest() {
    TBonePoseInfo& rig = *controller_.BonePoseInfo();
    rig.AddBone("jaw");
    rig.boneIds = {1};
    rig.GetPose(0);
    expression_.name = "Blink";
    expression_.AddBone("lid");
    expression_.boneIds = {2};
    expression_.GetPose(0);
    controller_.AddExpression(expression_);
    track_.name = "Blink";
    track_.AddKey({0, 1.0});
    animation_.AddTrack(track_);
    animation_.AddExpressionTrack(track_);
    controller_.AddAnimation(animation_);
    controller_.InitializeBones(pose_);

    raise = [] { throw TamskException{"raised "}; };
    seam::entered = OnEntry;
    seam::traced = [](const char* line) { tracedLines.emplace_back(line); };
    enteredMethods.clear();
    tracedLines.clear();
  }
  ~TrailTest() noexcept override {
    seam::entered = nullptr;
    seam::traced = nullptr;
    armedEntry.clear();
  }

  /// The text of the failure that leaves an action when the method of an entry raises.
  static std::string Trail(const std::string& entry, const std::function<void()>& action) {
    armedEntry = entry;
    try {
      action();
    } catch (const TamskException& failure) {
      return failure.message;
    }
    return "nothing was raised";
  }

  void Update() { controller_.UpdateFacialAnim(animation_, 0, weights_, pose_); }

  TController controller_;
  TExpressionInfo expression_;
  TAnimation animation_;
  TAnimationTrack track_;
  TBonePose pose_;
  TBonePoseInfo info_;
  std::vector<double> weights_;
};

TEST_F(TrailTest, EveryMethodAddsItsEntry) {
  Vector3 v;
  Quaternion q;
  const std::vector<std::pair<std::string, std::function<void()>>> methods = {
      {"TAnimation::AddExpressionTrack", [&] { animation_.AddExpressionTrack(track_); }},
      {"TAnimation::AddTrack", [&] { animation_.AddTrack(track_); }},
      {"TAnimation::Digest", [&] { animation_.Digest(); }},
      {"TAnimation::ExpressionValueAtTime", [&] { animation_.ExpressionValueAtTime(0, ""); }},
      {"TAnimation::GetExpressionTrack", [&] { animation_.GetExpressionTrack(""); }},
      {"TAnimation::GetTrack", [&] { animation_.GetTrack(0); }},
      {"TAnimation::ValuesAtTime", [&] { animation_.ValuesAtTime(0, weights_); }},
      {"TAnimation::~TAnimation", [] { TAnimation(); }},
      {"TAnimationTrack::AddKey", [&] { track_.AddKey({}); }},
      {"TAnimationTrack::DeleteKey", [&] { track_.DeleteKey(0); }},
      {"TAnimationTrack::GetKey", [&] { track_.GetKey(0); }},
      {"TAnimationTrack::ValueAtTime", [&] { track_.ValueAtTime(0); }},
      {"TAnimationTrack::~TAnimationTrack", [] { TAnimationTrack(); }},
      {"TBonePose::AddBone", [&] { pose_.AddBone({}); }},
      {"TBonePose::GetBone", [&] { pose_.GetBone(0); }},
      {"TBonePoseInfo::AddBone", [&] { info_.AddBone(""); }},
      {"TBonePoseInfo::AddPose", [&] { info_.AddPose(pose_); }},
      {"TBonePoseInfo::Blend", [&] { info_.Blend(weights_); }},
      {"TBonePoseInfo::Clear", [&] { info_.Clear(); }},
      {"TBonePoseInfo::FindBone", [&] { info_.FindBone(0); }},
      {"TBonePoseInfo::FindBoneIndex", [&] { info_.FindBoneIndex(0); }},
      {"TBonePoseInfo::GetBoneIndex", [&] { info_.GetBoneIndex(0); }},
      {"TBonePoseInfo::GetBoneName", [&] { info_.GetBoneName(0); }},
      {"TBonePoseInfo::GetPose", [&] { info_.GetPose(0); }},
      {"TBonePoseInfo::~TBonePoseInfo", [] { TBonePoseInfo(); }},
      {"TController::AddAnimation", [&] { controller_.AddAnimation(animation_); }},
      {"TController::AddExpression", [&] { controller_.AddExpression(expression_); }},
      {"TController::DeleteAnimation", [&] { controller_.DeleteAnimation(9); }},
      {"TController::DeleteExpression", [&] { controller_.DeleteExpression(""); }},
      {"TController::FinalBlend", [&] { controller_.FinalBlend(pose_); }},
      {"TController::GetAnimation", [&] { controller_.GetAnimation(0); }},
      {"TController::GetExpression", [&] { controller_.GetExpression(""); }},
      {"TController::GetExpression", [&] { controller_.GetExpression(0); }},
      {"TController::GetNeutralPose", [&] { controller_.GetNeutralPose(); }},
      {"TController::GetNeutralPoseWithoutHeadBone",
       [&] { controller_.GetNeutralPoseWithoutHeadBone(); }},
      {"TController::InitializeBones", [&] { controller_.InitializeBones(pose_); }},
      {"TController::TotalAnimTime", [&] { controller_.TotalAnimTime(); }},
      {"TController::UpdateFacialAnim", [&] { Update(); }},
      {"TController::~TController", [] { TController(); }},
      {"TExpressionInfo::Blend", [&] { expression_.Blend(nullptr, weights_, false); }},
      {"TExpressionInfo::TExpressionInfo", [] { TExpressionInfo(); }},
      {"TExpressionInfo::~TExpressionInfo", [] { TExpressionInfo(); }},
      {"TIndexedBone::TIndexedBone", [] { TIndexedBone(); }},
      {"_Blend", [&] { _Blend(v, q, v, q, q, v, q, 0); }},
  };
  std::set<std::string> vocabulary;
  for (const auto& [entry, call] : methods) {
    vocabulary.insert(entry);
    EXPECT_EQ(Trail(entry, call), "raised " + entry + " -> ");
  }
  EXPECT_EQ(vocabulary.size(), 43U);
}

TEST_F(TrailTest, EntriesRunInnermostFirst) {
  Update();  // so that nothing grows
  EXPECT_EQ(Trail("TBonePose::GetBone", [&] { Update(); }),
            "raised TBonePose::GetBone -> TController::FinalBlend -> "
            "TController::UpdateFacialAnim -> ");
  EXPECT_EQ(
      Trail("TIndexedBone::TIndexedBone", [&] { expression_.Blend(&pose_, weights_, true); }),
      "raised TIndexedBone::TIndexedBone -> TBonePose::GetBone -> TExpressionInfo::Blend -> ");
}

TEST_F(TrailTest, AFailureLeavesWhatItsFrameDidNotReach) {
  TExpressionInfo& expression = *controller_.GetExpression(0);
  expression.weight = 7;
  Trail("TBonePoseInfo::Blend", [&] { Update(); });
  EXPECT_EQ(expression.weight, 7);
  Trail("TExpressionInfo::Blend", [&] { Update(); });
  EXPECT_EQ(expression.weight, 1);
}

TEST_F(TrailTest, FailuresGoOnAsTheyAre) {
  struct Marked : TamskException {};  // a copy would lose its kind
  raise = [] { throw Marked(); };
  armedEntry = "TBonePose::GetBone";
  EXPECT_THROW(Update(), Marked);
  raise = [] { throw std::out_of_range("the library's own"); };
  armedEntry = "TBonePose::GetBone";
  EXPECT_THROW(Update(), std::out_of_range);
}

#ifdef __GLIBCXX__  // elsewhere erase() is noexcept
TEST_F(TrailTest, FailuresOfElementsLeaveTheirOwnersDestructor) {
  EXPECT_EQ(
      Trail("TAnimationTrack::~TAnimationTrack", [&] { const TController dying = controller_; }),
      "raised TAnimationTrack::~TAnimationTrack -> TAnimation::~TAnimation -> "
      "TController::~TController -> ");
  EXPECT_EQ(
      Trail("TExpressionInfo::~TExpressionInfo", [&] { const TController dying = controller_; }),
      "raised TExpressionInfo::~TExpressionInfo -> TController::~TController -> ");
  EXPECT_EQ(Trail("TAnimationTrack::~TAnimationTrack",
                  [&] {
                    TAnimation dying;
                    dying.expressionTracks.resize(1);
                  }),
            "raised TAnimationTrack::~TAnimationTrack -> TAnimation::~TAnimation -> ");
}
#endif

TEST_F(TrailTest, AControllersAnimationsGoBeforeItsExpressions) {
  auto dying = std::make_unique<TController>(controller_);
  enteredMethods.clear();
  dying.reset();
  const auto placeOf = [](const char* entry) {
    return std::find(enteredMethods.begin(), enteredMethods.end(), entry);
  };
  EXPECT_LT(placeOf("TAnimation::~TAnimation"), placeOf("TExpressionInfo::~TExpressionInfo"));
  EXPECT_NE(placeOf("TExpressionInfo::~TExpressionInfo"), enteredMethods.end());
}

TEST_F(TrailTest, ControllersConstructorAndRigTakeNoPart) {
  const auto controller = std::make_unique<TController>();
  controller->BonePoseInfo();
  EXPECT_TRUE(enteredMethods.empty());
}

TEST_F(TrailTest, TraceLines) {
  expression_.AddBone("jaw");
  expression_.boneIds = {2, 1};
  controller_.AddExpression(expression_);
  controller_.InitializeBones(pose_);
  EXPECT_EQ(tracedLines,
            (std::vector<std::string>{
                "[Lipvane]: Initializing bones...", "[Lipvane]: Default Poses...",
                "[Lipvane]:\t Added bone with index 1", "[Lipvane]: Expressions...",
                "[Lipvane]:\t Expression 0...", "[Lipvane]:\t Added bone with index 2",
                "[Lipvane]:\t Expression 1...", "[Lipvane]: done with 2 unique bones."}));
  Trace("%s", std::string(5000, 'x').c_str());
  EXPECT_EQ(tracedLines.back(), std::string(1023, 'x')) << "long lines are cut";
}

}  // namespace
}  // namespace lipvane
