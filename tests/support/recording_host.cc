#include "tests/support/recording_host.h"

#include <Imath/ImathEuler.h>
#include <Imath/ImathMatrix.h>
#include <Imath/ImathMatrixAlgo.h>
#include <Imath/ImathQuat.h>

#include <algorithm>
#include <iterator>

namespace lipvane::test {
namespace {

Imath::M44d FromDegrees(const Triple& degrees) {
  const double radians = 3.14159265358979323846 / 180.0;
  return Imath::Eulerd(degrees[0] * radians, degrees[1] * radians, degrees[2] * radians,
                       Imath::Eulerd::XYZ)
      .toMatrix44();
}

Imath::M44d ToImath(const host::Matrix& matrix) {
  Imath::M44d result;
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 4; ++column) {
      result[row][column] = matrix[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
    }
  }
  return result;
}

// A walk of the host: depth first, children in the order in which they were made.
void AppendBelow(const SceneDescription& all, const std::string& path, SceneDescription& walk) {
  for (const NodeDescription& node : all) {
    if (ParentPathOf(node) != path) continue;
    walk.push_back(node);
    AppendBelow(all, node.path, walk);
  }
}

bool IsChannel(const std::string& name) {
  static const char* const kNames[] = {"translateX", "translateY", "translateZ",
                                       "rotateX",    "rotateY",    "rotateZ",
                                       "scaleX",     "scaleY",     "scaleZ"};
  return std::find(std::begin(kNames), std::end(kNames), name) != std::end(kNames);
}

}  // namespace

class RecordingHost::Iterator : public host::DagIterator {
 public:
  explicit Iterator(RecordingHost& host) : host_(host) {}
  bool IsDone() const override { return place_ == host_.scene_.size(); }
  void Next() override { ++place_; }
  host::Status GetPath(host::DagPath& path) const override {
    if (host_.Note("GetPath " + host_.scene_[place_].path)) return host::StatusCode::kFailure;
    path.object = place_;
    return {};
  }

 private:
  RecordingHost& host_;
  std::size_t place_ = 0;
};

class RecordingHost::AttachedJoint : public host::Joint {
 public:
  AttachedJoint(RecordingHost& host, const Triple& orient) : host_(host), orient_(orient) {}
  host::Status GetOrientation(host::Rotation& orientation) const override {
    if (host_.Note("GetOrientation")) return host::StatusCode::kFailure;
    const Imath::Quatd quaternion = Imath::extractQuat(FromDegrees(orient_));
    orientation = {quaternion.r, quaternion.v.x, quaternion.v.y, quaternion.v.z};
    return {};
  }

 private:
  RecordingHost& host_;
  Triple orient_;
};

class RecordingHost::Curve : public host::AnimCurve {
 public:
  explicit Curve(RecordingHost& host) : host_(host) {}
  host::Status Create(const host::Node& node, const host::Attribute& attribute) override {
    const std::string channel = host_.ChannelOf(node, attribute);
    channel_.clear();
    if (host_.Note("Create " + channel)) return host::StatusCode::kFailure;
    if (!node.object.has_value() || !attribute.object.has_value()) {
      return host::StatusCode::kInvalidParameter;
    }
    driver_ = host_.DriverOf(channel);
    refused_ = channel;
    if (!driver_.empty()) return host::StatusCode::kFailure;
    channel_ = channel;
    host_.curves[channel];
    return {};
  }
  host::Status AddKeyframe(double frame, double value) override {
    const std::size_t dot = refused_.find('.');
    if (!driver_.empty()) {
      host_.lostKeys.AddLost(refused_.substr(0, dot), refused_.substr(dot + 1),
                             "driven by " + driver_ + " (not a curve over time)");
    }
    if (channel_.empty()) return host::StatusCode::kFailure;
    host_.lostKeys.AddKeyed(refused_.substr(0, dot));
    if (host_.Note("AddKeyframe " + channel_)) return host::StatusCode::kFailure;
    host_.curves[channel_][frame] = value;
    return {};
  }

 private:
  RecordingHost& host_;
  std::string channel_;  // "" when it takes no keys
  std::string refused_;  // the channel, be it so or not
  std::string driver_;
};

RecordingHost::RecordingHost(const SceneDescription& scene) {
  NodeDescription world;
  world.type = "world";
  scene_.push_back(world);
  AppendBelow(scene, "", scene_);
}

bool RecordingHost::Note(const std::string& call) {
  calls_.push_back(call);
  const std::size_t number = canFail_++;
  return failing_ && (number == *failing_ || (failsAllLater_ && number > *failing_));
}

const NodeDescription* RecordingHost::Describe(const host::Node& node) const {
  const auto* place = std::any_cast<std::size_t>(&node.object);
  return place == nullptr ? nullptr : &scene_[*place];
}

std::string RecordingHost::PathOf(const host::Node& node) const {
  const NodeDescription* described = Describe(node);
  return described == nullptr ? std::string() : described->path;
}

std::string RecordingHost::ChannelOf(const host::Node& node,
                                     const host::Attribute& attribute) const {
  const auto* name = std::any_cast<std::string>(&attribute.object);
  return PathOf(node) + "." + (name == nullptr ? "" : *name);
}

std::string RecordingHost::DriverOf(const std::string& channel) const {
  for (const NodeDescription& node : scene_) {
    for (const auto& [name, driver] : node.drivers) {
      if (node.path + "." + name == channel) return driver;
    }
  }
  return {};
}

std::size_t RecordingHost::PlaceOf(const std::string& path) const {
  const auto found = std::find_if(scene_.begin(), scene_.end(),
                                  [&](const NodeDescription& node) { return node.path == path; });
  return static_cast<std::size_t>(found - scene_.begin());
}

std::unique_ptr<host::DagIterator> RecordingHost::NewDagIterator(host::Status& status) {
  if (Note("NewDagIterator")) {
    status = host::StatusCode::kFailure;
    return nullptr;
  }
  return std::make_unique<Iterator>(*this);
}

host::Status RecordingHost::AttachDagNode(const host::DagPath& path, host::Node& node) {
  const auto place = std::any_cast<std::size_t>(path.object);
  if (Note("AttachDagNode " + scene_[place].path)) return host::StatusCode::kFailure;
  node.object = place;
  return {};
}

host::Status RecordingHost::TransformOf(const host::DagPath& path, host::Node& transform) {
  const auto place = std::any_cast<std::size_t>(path.object);
  if (Note("TransformOf " + scene_[place].path)) return host::StatusCode::kFailure;
  if (place == 0) return host::StatusCode::kInvalidParameter;
  transform.object = scene_[place].type == "mesh" ? PlaceOf(ParentPathOf(scene_[place])) : place;
  return {};
}

std::string RecordingHost::NodeName(const host::Node& node) {
  const NodeDescription* described = Describe(node);
  if (described == nullptr) return {};
  return described->path.empty() ? "world" : NameOf(*described);
}

host::Node RecordingHost::ParentOf(const host::Node& node, unsigned index) {
  host::Node parent;
  if (Note("ParentOf")) return parent;
  const NodeDescription* described = Describe(node);
  if (described == nullptr || described->path.empty() || index != 0) return parent;
  parent.object = PlaceOf(ParentPathOf(*described));
  return parent;
}

host::Attribute RecordingHost::FindAttribute(const host::Node& node, const std::string& name) {
  host::Attribute attribute;
  if (Note("FindAttribute " + name)) return attribute;
  const NodeDescription* described = Describe(node);
  if (described != nullptr && (described->type == "joint" || described->type == "transform") &&
      IsChannel(name)) {
    attribute.object = name;
  }
  return attribute;
}

host::Status RecordingHost::LocalMatrix(const host::Node& transform, host::Matrix& matrix) {
  const NodeDescription* node = Describe(transform);
  if (Note("LocalMatrix " + (node ? node->path : ""))) return host::StatusCode::kFailure;
  if (node == nullptr) return host::StatusCode::kInvalidParameter;
  Stand stand = node->stand;
  const auto after = node->frames.upper_bound(static_cast<int>(currentTime));
  if (after != node->frames.begin()) stand = std::prev(after)->second;
  Imath::M44d local = FromDegrees(stand.rotate) * FromDegrees(node->orient);
  for (int axis = 0; axis < 3; ++axis) {
    local[3][axis] = stand.translate[static_cast<std::size_t>(axis)];
  }
  for (std::size_t row = 0; row < 4; ++row) {
    for (std::size_t column = 0; column < 4; ++column) {
      matrix[row][column] = local[static_cast<int>(row)][static_cast<int>(column)];
    }
  }
  return {};
}

host::Transformation RecordingHost::Decompose(const host::Matrix& matrix) {
  NoteHarmless("Decompose");
  host::Transformation result;
  result.matrix = matrix;
  Imath::V3d scale, shear, angles, translation;
  Imath::extractSHRT(ToImath(matrix), scale, shear, angles, translation);
  for (std::size_t axis = 0; axis < 3; ++axis) {
    result.scale[axis] = scale[static_cast<int>(axis)];
    result.translation[axis] = translation[static_cast<int>(axis)];
  }
  return result;
}

std::array<double, 3> RecordingHost::EulerAngles(const host::Matrix& matrix) {
  NoteHarmless("EulerAngles");
  Imath::V3d angles;
  Imath::extractEulerXYZ(ToImath(matrix), angles);
  return {angles.x, angles.y, angles.z};
}

std::unique_ptr<host::Joint> RecordingHost::AttachJoint(const host::Node& node,
                                                        host::Status& status) {
  const NodeDescription* described = Describe(node);
  const bool isJoint = described != nullptr && described->type == "joint";
  if (Note("AttachJoint " + (described ? described->path : ""))) {
    status = host::StatusCode::kFailure;
  } else {
    status = isJoint ? host::StatusCode::kSuccess : host::StatusCode::kInvalidParameter;
  }
  if (!status.ok()) return nullptr;
  return std::make_unique<AttachedJoint>(*this, described->orient);
}

std::unique_ptr<host::AnimCurve> RecordingHost::NewAnimCurve() {
  return std::make_unique<Curve>(*this);
}

host::Status RecordingHost::SetCurrentTime(double frame) {
  if (Note("SetCurrentTime " + std::to_string(static_cast<int>(frame)))) {
    return host::StatusCode::kFailure;
  }
  currentTime = frame;
  return {};
}

host::Status RecordingHost::SelectByName(const std::string& name, host::ListAdjustment adjustment) {
  if (Note("SelectByName " + name)) return host::StatusCode::kFailure;
  if (adjustment == host::ListAdjustment::kReplaceList) selection.clear();
  bool found = false;
  for (const NodeDescription& node : scene_) {
    if (node.path.empty() || NameOf(node) != name) continue;
    found = true;
    if (std::find(selection.begin(), selection.end(), node.path) == selection.end()) {
      selection.push_back(node.path);
    }
  }
  return found ? host::StatusCode::kSuccess : host::StatusCode::kInvalidParameter;
}

host::Status RecordingHost::GetSelectionLength(unsigned& length) {
  if (Note("GetSelectionLength")) return host::StatusCode::kFailure;
  length = static_cast<unsigned>(selection.size());
  return {};
}

host::Status RecordingHost::ClearSelection() {
  if (Note("ClearSelection")) return host::StatusCode::kFailure;
  selection.clear();
  return {};
}

std::unique_ptr<host::ArgDatabase> RecordingHost::NewArgDatabase(const host::Syntax& syntax,
                                                                 const host::Arguments& arguments) {
  NoteHarmless("NewArgDatabase");
  return std::make_unique<standalone::WordArgDatabase>(syntax, arguments);
}

void RecordingHost::DisplayError(const std::string& text) {
  NoteHarmless("DisplayError");
  shown.push_back({"error", text, ""});
}

void RecordingHost::DisplayWarning(const std::string& text) {
  NoteHarmless("DisplayWarning");
  shown.push_back({"warning", text, ""});
}

void RecordingHost::PrintStatus(const host::Status& status, const std::string& label) {
  NoteHarmless("PrintStatus " + label);
  shown.push_back({"diagnostic", status.Description(), label});
}

void RecordingHost::ShowMessageBox(const std::string& text, const std::string& title,
                                   host::BoxIcon icon) {
  NoteHarmless(icon == host::BoxIcon::kInformation ? "ShowMessageBox information"
                                                   : "ShowMessageBox exclamation");
  shown.push_back({"box", text, title});
}

}  // namespace lipvane::test
