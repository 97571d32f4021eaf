#include "lipvane/host/standalone/key_commands.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>

#include "lipvane/host/standalone/ma_set_attr.h"
#include "lipvane/host/standalone/own_commands.h"
#include "lipvane/host/standalone/refusal_text.h"
#include "lipvane/host/standalone/tangent_names.h"
#include "lipvane/text/numbers.h"

namespace lipvane::standalone {
namespace {

struct NodeChannel {
  NodeId node;
  Channel channel;
};

/// The channels that an attribute is or, as "rotate", holds.
std::vector<Channel> ChannelsOf(std::string_view attribute) {
  std::vector<Channel> channels;
  for (std::size_t i = 0; i < kChannelCount; ++i) {
    const auto channel = static_cast<Channel>(i);
    for (std::string_view name : {ChannelName(channel), ChannelShortName(channel)}) {
      const std::string_view compound = name.substr(0, name.size() - 1);
      if (attribute == name || attribute == compound) channels.push_back(channel);
    }
  }
  return channels;
}

bool HasChannels(const Scene& scene, NodeId node) {
  return scene.Kind(node) == NodeKind::kTransform || scene.Kind(node) == NodeKind::kJoint;
}

std::string Shown(const Scene& scene, const NodeChannel& at) {
  return scene.ShownPath(scene.FirstPath(at.node)) + "." + ChannelName(at.channel);
}

/// One call of setKeyframe: all is looked at before the first key is set.
class KeySetting {
 public:
  KeySetting(StandaloneHost& host, const WordArgDatabase& flags) : host_(host), flags_(flags) {}

  host::Status Run(const std::vector<std::string>& objects) {
    if (!ReadNumbers() || !ReadTangents()) return host::StatusCode::kFailure;
    for (const std::string& object : objects) {
      if (!AddObject(object)) return host::StatusCode::kFailure;
    }
    if (objects.empty()) {
      for (const PathId path : host_.Selection()) {
        if (!AddNode(path, {})) return host::StatusCode::kFailure;
      }
    }
    if (channels_.empty()) return Fail("nothing is selected, and no objects are given");
    std::vector<double> values;
    for (const NodeChannel& at : channels_) {
      const Scene& scene = host_.GetScene();
      if (scene.RefusalOf(at.node, at.channel) != Refusal::kNone) {
        return Fail(Shown(scene, at) + " is " + RefusalText(scene, at.node, at.channel));
      }
      values.push_back(ValueOf(at));
      if (!std::isfinite(values.back())) return Fail(Shown(scene, at) + " has no finite value");
    }
    for (std::size_t i = 0; i < channels_.size(); ++i)
      SetKeys(channels_[i], values[i]);
    return {};
  }

 private:
  host::Status Fail(const std::string& reason) {
    host_.DisplayError("setKeyframe: " + reason + ": no key is set");
    return host::StatusCode::kFailure;
  }

  bool ReadNumbers() {
    for (const std::string& word : flags_.ValuesOf("-t")) {
      const auto frame = text::FiniteReal(word);
      if (!frame) return Fail("\"" + word + "\" is not a frame").ok();
      frames_.push_back(*frame);
    }
    if (frames_.empty()) frames_.push_back(host_.CurrentTime());
    for (const std::string& word : flags_.ValuesOf("-v")) {
      value_ = text::FiniteReal(word);
      if (!value_) return Fail("\"" + word + "\" is not a value").ok();
    }
    return true;
  }

  bool ReadTangents() {
    const auto read = [&](const char* flag, std::optional<Tangent>& tangent) {
      for (const std::string& name : flags_.ValuesOf(flag)) {
        tangent = TangentNamed(name);
        if (!tangent) return Fail("\"" + name + "\" is no type of tangent").ok();
      }
      return true;
    };
    return read("-itt", in_) && read("-ott", out_);
  }

  bool AddObject(const std::string& object) {
    const PlugName plug = SplitPlug(object);
    std::vector<PathId> paths;
    if (!FindObject(host_, std::string(plug.node), paths)) return false;
    return std::all_of(paths.begin(), paths.end(),
                       [&](PathId path) { return AddNode(path, plug.attribute); });
  }

  /// Adds the attribute, else those of the flag, else all.
  bool AddNode(PathId path, std::string_view attribute) {
    std::vector<std::string> attributes = flags_.ValuesOf("-at");
    if (!attribute.empty()) attributes.assign(1, std::string(attribute));
    if (attributes.empty()) attributes = {"translate", "rotate", "scale"};
    const NodeId node = host_.GetScene().NodeOf(path);
    for (const std::string& name : attributes) {
      const std::vector<Channel> channels = ChannelsOf(name);
      if (channels.empty() || !HasChannels(host_.GetScene(), node)) {
        return Fail(host_.GetScene().ShownPath(path) + " has no attribute \"" + name +
                    "\" that takes keys here")
            .ok();
      }
      for (const Channel channel : channels)
        channels_.push_back({node, channel});
    }
    return true;
  }

  void SetKeys(const NodeChannel& at, double value) {
    Scene& scene = host_.GetScene();
    if (!scene.AttachCurve(at.node, at.channel)) return;
    for (const double frame : frames_) {
      scene.SetKey(at.node, at.channel, frame, value);
      scene.SetTangents(at.node, at.channel, frame, in_, out_);
    }
  }

  double ValueOf(const NodeChannel& at) const {
    const Scene& scene = host_.GetScene();
    if (value_) return *value_ * scene.UnitSize(at.channel);
    const TransformValues values = scene.ValuesAt(at.node, host_.CurrentTime());
    const std::array<const Vector*, 3> kinds{&values.translate, &values.rotate, &values.scale};
    const auto i = static_cast<std::size_t>(at.channel);
    return (*kinds[i / 3])[i % 3];
  }

  StandaloneHost& host_;
  const WordArgDatabase& flags_;
  std::vector<double> frames_;
  std::optional<double> value_;
  std::optional<Tangent> in_;
  std::optional<Tangent> out_;
  std::vector<NodeChannel> channels_;
};

}  // namespace

CommandSyntax SetKeyframeSyntax() {
  CommandSyntax syntax;
  // Times may have a unit in the host, which is not known here: they are read as texts.
  syntax.flags.AddFlag("-t", "-time", host::ArgType::kString);
  syntax.flags.MakeFlagMultiUse("-t");
  syntax.flags.AddFlag("-v", "-value", host::ArgType::kDouble);
  syntax.flags.AddFlag("-at", "-attribute", host::ArgType::kString);
  syntax.flags.MakeFlagMultiUse("-at");
  syntax.flags.AddFlag("-itt", "-inTangentType", host::ArgType::kString);
  syntax.flags.AddFlag("-ott", "-outTangentType", host::ArgType::kString);
  syntax.objects = "nodes or attributes";
  return syntax;
}

host::Status SetKeyframe(StandaloneHost& host, const WordArgDatabase& flags,
                         const std::vector<std::string>& objects) {
  return KeySetting(host, flags).Run(objects);
}

CommandSyntax GetAttrSyntax() {
  CommandSyntax syntax;
  syntax.objects = "an attribute";
  return syntax;
}

host::Status GetAttr(StandaloneHost& host, const WordArgDatabase& /*flags*/,
                     const std::vector<std::string>& objects) {
  const auto fail = [&](const std::string& reason) {
    host.DisplayError("getAttr: " + reason);
    return host::StatusCode::kFailure;
  };
  if (objects.size() != 1) return fail("it takes one attribute");
  const PlugName plug = SplitPlug(objects[0]);
  std::vector<PathId> paths;
  if (!FindObject(host, std::string(plug.node), paths)) return host::StatusCode::kFailure;
  const NodeId node = host.GetScene().NodeOf(paths[0]);
  if (ChannelsOf(plug.attribute).empty() || !HasChannels(host.GetScene(), node)) {
    return fail("no attribute that is known here matches name: " + objects[0]);
  }
  return {};
}

CommandSyntax UndoInfoSyntax() {
  CommandSyntax syntax;
  syntax.flags.AddFlag("-ock", "-openChunk");
  syntax.flags.AddFlag("-cck", "-closeChunk");
  syntax.flags.AddFlag("-cn", "-chunkName", host::ArgType::kString);
  return syntax;
}

host::Status UndoInfo(StandaloneHost& /*host*/, const WordArgDatabase& /*flags*/,
                      const std::vector<std::string>& /*objects*/) {
  return {};
}

}  // namespace lipvane::standalone
