#include "lipvane/engine/bone_routes.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace lipvane {
namespace {

BoneRoutes::Routes Found(const std::vector<int>& ids, const std::vector<int>& outIds) {
  std::unordered_map<int, std::size_t> positions;
  for (std::size_t i = 0; i < ids.size(); ++i)
    positions.emplace(ids[i], i);  // the first one stays
  BoneRoutes::Routes found;
  found.ids = ids;
  for (std::size_t out = 0; out < outIds.size(); ++out) {
    const auto position = positions.find(outIds[out]);
    if (position == positions.end()) continue;
    found.routes.push_back({out, position->second});
    found.boneCount = std::max(found.boneCount, static_cast<int>(position->second) + 1);
  }
  return found;
}

}  // namespace

void BoneRoutes::Update(const TBonePose& out, const TBonePoseInfo& rig,
                        const std::vector<TExpressionInfo>& expressions) {
  if (AreOf(out, rig, expressions)) return;
  // All is made before any of it is kept: half of it would look like the whole.
  std::vector<int> outIds;
  for (const TIndexedBone& bone : out.Bones())
    outIds.push_back(bone.boneIndex);
  Routes intoRig = Found(rig.boneIds, outIds);
  std::vector<Routes> intoExpressions;
  intoExpressions.reserve(expressions.size());
  for (const TExpressionInfo& expression : expressions)
    intoExpressions.push_back(Found(expression.boneIds, outIds));
  outIds_ = std::move(outIds);
  rig_ = std::move(intoRig);
  expressions_ = std::move(intoExpressions);
}

bool BoneRoutes::AreOf(const TBonePose& out, const TBonePoseInfo& rig,
                       const std::vector<TExpressionInfo>& expressions) const {
  const auto isOut = [](int id, const TIndexedBone& bone) { return id == bone.boneIndex; };
  const auto isOf = [](const Routes& routes, const TExpressionInfo& expression) {
    return routes.ids == expression.boneIds;
  };
  return rig_.ids == rig.boneIds &&
         std::equal(outIds_.begin(), outIds_.end(), out.Bones().begin(), out.Bones().end(),
                    isOut) &&
         std::equal(expressions_.begin(), expressions_.end(), expressions.begin(),
                    expressions.end(), isOf);
}

}  // namespace lipvane
