#include "lipvane/scene/bone_curves.h"

#include "lipvane/scene/dag_search.h"

namespace lipvane::scene {
BoneCurveSet::BoneCurveSet(host::Host& host) {
  for (auto& curve : curves) {
    curve = host.NewAnimCurve();
  }
}

void BindBone(host::Host& host, const std::string& boneName, const host::DagPath& path,
              const host::Node& node, std::size_t channelCount, BoneCurveSet& bone) {
  bone.boneName = boneName;
  bone.node = node;
  std::array<host::Attribute, kChannelNames.size()> attributes;
  for (std::size_t channel = 0; channel < channelCount; ++channel) {
    attributes[channel] = host.FindAttribute(node, kChannelNames[channel]);
  }
  host::Node transform;
  host.TransformOf(path, transform);
  for (std::size_t channel = 0; channel < channelCount; ++channel) {
    bone.curves[channel]->Create(transform, attributes[channel]);
  }
}

host::Status CreateBoneCurves(host::Host& host, int boneCount,
                              const std::vector<std::string>& boneNames,
                              std::vector<BoneCurveSet>& boneCurves) {
  if (boneCount <= 0) return {};
  const DagSearch search(host, boneNames);
  if (!search.status().ok()) return search.status();
  bool allFound = true;
  for (std::size_t i = 0; i < static_cast<std::size_t>(boneCount); ++i) {
    const bool found =
        search.ForEach(boneNames[i], [&](const host::DagPath& path, const host::Node& node) {
          BindBone(host, boneNames[i], path, node, kChannelNames.size(), boneCurves[i]);
        });
    if (!found) allFound = false;
  }
  return allFound ? host::StatusCode::kSuccess : host::StatusCode::kFailure;
}

}  // namespace lipvane::scene
