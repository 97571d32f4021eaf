#include "lipvane/scene/skeleton_capture.h"

#include <utility>

namespace lipvane::scene {
namespace {

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

SkeletonCapture::SkeletonCapture(host::Host& host, std::vector<std::string> boneNames)
    : host_(host), boneNames_(std::move(boneNames)) {}

host::Status SkeletonCapture::AppendHierarchy(std::vector<LbpHierarchyLine>& hierarchy) {
  return ForEachBone([&](const host::DagPath&, const host::Node& node) {
    hierarchy.push_back({host_.NodeName(node), host_.NodeName(host_.ParentOf(node, 0))});
  });
}

host::Status SkeletonCapture::AppendPose(std::vector<LbpBone>& bones) {
  return ForEachBone([&](const host::DagPath& path, const host::Node&) {
    LbpBone bone;
    const host::Status status = CaptureBone(host_, path, bone);
    if (status.ok()) {
      bones.push_back(bone);
    } else {
      host_.PrintStatus(status, "MFnDagNode constructor");
    }
  });
}

host::Status SkeletonCapture::ForEachBone(const DagSearch::Visitor& visit) {
  if (boneNames_.empty()) return {};
  if (!search_ || !search_->status().ok()) search_.emplace(host_, boneNames_);
  if (!search_->status().ok()) return search_->status();
  for (const std::string& name : boneNames_) {
    search_->ForEach(name, visit);
  }
  return {};
}

}  // namespace lipvane::scene
