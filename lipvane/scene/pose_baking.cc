#include "lipvane/scene/pose_baking.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "lipvane/scene/nearest_euler.h"

namespace lipvane::scene {
namespace {

template <std::size_t N>
bool IsFinite(const std::array<double, N>& values) {
  return std::all_of(values.begin(), values.end(),
                     [](double value) { return std::isfinite(value); });
}

}  // namespace

BoneBaker::BoneBaker(host::Host& host, const DagSearch& search, const std::string& boneName)
    : host_(host), bone_(host) {
  host::DagPath lastPath;
  host::Node lastNode;
  search.ForEach(boneName, [&](const host::DagPath& path, const host::Node& node) {
    lastPath = path;
    lastNode = node;
  });
  host::Status status;
  hasJoint_ = host_.AttachJoint(lastNode, status) != nullptr;
  if (hasJoint_) BindBone(host_, boneName, lastPath, lastNode, kPosedChannelCount, bone_);
}

host::Status BoneBaker::Key(const TIndexedBone& pose, double frame) {
  if (!hasJoint_) return host::StatusCode::kFailure;
  // Looked at here, since a host may make angles of a rotation that is not finite.
  const Quaternion& q = pose.rotation;
  if (!IsFinite(std::array<double, 4>{q.w, q.x, q.y, q.z})) {
    return host::StatusCode::kInvalidParameter;
  }
  JointChannels channels;
  const host::Status made = MakeJointChannels(host_, bone_.node, pose, channels);
  if (!made.ok()) return made;
  if (!IsFinite(channels.rotation) || !IsFinite(channels.translation)) {
    return host::StatusCode::kInvalidParameter;
  }
  if (previousRotation_) channels.rotation = NearestEuler(channels.rotation, *previousRotation_);
  previousRotation_ = channels.rotation;
  KeyChannels(bone_, channels, frame);
  return {};
}

}  // namespace lipvane::scene
