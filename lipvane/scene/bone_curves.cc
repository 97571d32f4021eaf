#include "lipvane/scene/bone_curves.h"

#include "lipvane/scene/dag_search.h"

namespace lipvane::scene {
namespace {

void BindToNode(host::Host& host, const std::string& boneName, const host::DagPath& path,
                const host::Node& node, BoneCurveSet& bone) {
  bone.boneName = boneName;
  bone.node = node;
  std::array<host::Attribute, kChannelNames.size()> attributes;
  for (std::size_t channel = 0; channel < attributes.size(); ++channel) {
    attributes[channel] = host.FindAttribute(node, kChannelNames[channel]);
  }
  host::Node transform;
  host.TransformOf(path, transform);
  // A channel that takes no curve is the host's to report; the others still get theirs.
  for (std::size_t channel = 0; channel < attributes.size(); ++channel) {
    bone.curves[channel]->Create(transform, attributes[channel]);
  }
}

}  // namespace

BoneCurveSet::BoneCurveSet(host::Host& host) {
  for (auto& curve : curves) {
    curve = host.NewAnimCurve();
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
          BindToNode(host, boneNames[i], path, node, boneCurves[i]);
        });
    if (!found) allFound = false;
  }
  return allFound ? host::StatusCode::kSuccess : host::StatusCode::kFailure;
}

}  // namespace lipvane::scene
