#include "lipvane/scene/skeleton_capture.h"

#include "lipvane/scene/dag_search.h"

namespace lipvane::scene {
namespace {

host::Status VisitBones(host::Host& host, const std::vector<std::string>& boneNames,
                        const DagSearch::Visitor& visit) {
  if (boneNames.empty()) return {};
  const DagSearch search(host, boneNames);
  if (!search.status().ok()) return search.status();
  for (const std::string& name : boneNames) {
    search.ForEach(name, visit);
  }
  return {};
}

host::Status CaptureBone(host::Host& host, const host::DagPath& path, LbpBone& bone) {
  host::Node transform;
  host::Status status = host.TransformOf(path, transform);
  host::Matrix local;
  if (status.ok()) status = host.LocalMatrix(transform, local);
  if (!status.ok()) return status;
  const host::Transformation transformation = host.Decompose(local);
  for (std::size_t i = 0; i < 16; ++i) {
    bone.matrix[i] = transformation.matrix[i / 4][i % 4];
  }
  for (std::size_t axis = 0; axis < 3; ++axis) {
    bone.translation[axis] = transformation.translation[axis];
    bone.scale[axis] = transformation.scale[axis];
  }
  return {};
}

}  // namespace

host::Status CaptureHierarchy(host::Host& host, const std::vector<std::string>& boneNames,
                              std::vector<LbpHierarchyLine>& hierarchy) {
  return VisitBones(host, boneNames, [&](const host::DagPath&, const host::Node& node) {
    hierarchy.push_back({host.NodeName(node), host.NodeName(host.ParentOf(node, 0))});
  });
}

host::Status CapturePose(host::Host& host, const std::vector<std::string>& boneNames,
                         std::vector<LbpBone>& bones) {
  return VisitBones(host, boneNames, [&](const host::DagPath& path, const host::Node&) {
    LbpBone bone;
    const host::Status status = CaptureBone(host, path, bone);
    if (status.ok()) {
      bones.push_back(bone);
    } else {
      host.PrintStatus(status, "MFnDagNode constructor");
    }
  });
}

}  // namespace lipvane::scene
