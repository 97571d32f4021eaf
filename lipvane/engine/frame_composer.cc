#include "lipvane/engine/frame_composer.h"

#include <cstddef>

#include "lipvane/engine/arrays.h"
#include "lipvane/engine/step_batch.h"

namespace lipvane {

void FrameComposer::Compose(TBonePoseInfo& rig, std::vector<TExpressionInfo>& expressions,
                            TBonePose& out) {
  if (out.BoneCount() == 0) return;
  if (&out == &rig.poses[0]) {  // which is read until the end, and may grow
    TBonePose composed = out;
    Compose(rig, expressions, composed);
    out = composed;
    return;
  }
  routes_.Update(out, rig, expressions);
  // Deliberate: a bone that the rig lacks rests on no rotation at all, not on the identity.
  const TIndexedBone noBone({}, {0, 0, 0, 0}, 0);
  // One loan of the output for all of its bones, which lie in a row.
  bones_.assign(out.Bones().size(), {&noBone, &out.GetBone(0)});
  for (std::size_t i = 0; i < bones_.size(); ++i)
    bones_[i].out += i;

  const BoneRoutes::Routes& rigRoutes = routes_.IntoRig();
  rig.poses[0].GrowTo(rigRoutes.boneCount);
  for (const BoneRoutes::Route& route : rigRoutes.routes)
    bones_[route.out].base = &rig.poses[0].Bones()[route.position];

  for (std::size_t i = 0; i < expressions.size(); ++i) {
    for (const BoneRoutes::Route& route : routes_.IntoExpression(i).routes) {
      float& sum = bones_[route.out].weightSum;
      sum = static_cast<float>(sum + expressions[i].weight);
    }
  }
  StepBatch steps;
  for (std::size_t i = 0; i < expressions.size(); ++i) {
    if (expressions[i].weight != 0.0)
      AddExpression(expressions[i], routes_.IntoExpression(i), steps);
  }
  AddSpeech(rig, rigRoutes, steps);
  bones_.clear();  // what they point to may go
}

void FrameComposer::AddExpression(TExpressionInfo& expression, const BoneRoutes::Routes& routes,
                                  StepBatch& steps) {
  if (routes.routes.empty()) return;
  Grown(expression.blendedBones, routes.boneCount - 1);
  for (const BoneRoutes::Route& route : routes.routes) {
    Progress& bone = bones_[route.out];
    const double weight =
        bone.weightSum > 1.0F ? expression.weight / bone.weightSum : expression.weight;
    bone.taken = static_cast<float>(bone.taken + weight);
    bone.Add(expression.blendedBones[route.position], static_cast<float>(weight), steps);
  }
  steps.Flush();
}

void FrameComposer::AddSpeech(TBonePoseInfo& rig, const BoneRoutes::Routes& routes,
                              StepBatch& steps) {
  // Those of which the expressions leave nothing are not even made.
  const auto isLeft = [&](const BoneRoutes::Route& route) {
    return bones_[route.out].taken < 1.0F;
  };
  if (rig.blendedBones.size() < static_cast<std::size_t>(routes.boneCount)) {
    for (const BoneRoutes::Route& route : routes.routes)
      if (isLeft(route)) Grown(rig.blendedBones, static_cast<int>(route.position));
  }
  for (const BoneRoutes::Route& route : routes.routes) {
    Progress& bone = bones_[route.out];
    if (isLeft(route)) bone.Add(rig.blendedBones[route.position], 1.0F - bone.taken, steps);
  }
  steps.Flush();
}

void FrameComposer::Progress::Add(const TIndexedBone& target, float weight, StepBatch& steps) {
  steps.Add({&target, base, isBegun ? out : base, out, weight});
  isBegun = true;
}

}  // namespace lipvane
