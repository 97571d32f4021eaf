#include "lipvane/host/standalone/scene.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <stdexcept>
#include <unordered_map>
#include <utility>

#include "lipvane/host/standalone/curve_keys.h"
#include "lipvane/host/standalone/drivers.h"
#include "lipvane/host/standalone/hierarchy.h"
#include "lipvane/host/standalone/ma_reader.h"
#include "lipvane/host/standalone/path_names.h"
#include "lipvane/host/standalone/playback_range_edit.h"
#include "lipvane/host/standalone/scene_data.h"
#include "lipvane/host/standalone/scene_writer.h"
#include "lipvane/host/standalone/sound_node_text.h"
#include "lipvane/text/file.h"
#include "lipvane/text/numbers.h"

namespace lipvane::standalone {
namespace {

PlugCode CodeOf(Channel channel) {
  return static_cast<PlugCode>(channel);
}

/// Does the attribute have a part in the local matrix of such a node?
bool Counts(const TransformValues& values, PlugCode code) {
  const bool isPivot = code >= plug::kRotatePivot;
  const bool isOfJoints = code >= plug::kJointOrient && !isPivot;
  const bool isShear = code >= plug::kShear && code < plug::kRotateOrder;
  const bool isInverseScale = code >= plug::kInverseScale && code < plug::kSegmentScaleCompensate;
  if (!values.isJoint) return !isOfJoints;
  return !isPivot && !isShear && (!isInverseScale || values.segmentScaleCompensate);
}

std::string CurveNameOf(const std::string& node, Channel channel) {
  std::string name = node + "_" + ChannelName(channel);
  std::replace(name.begin(), name.end(), ':', '_');
  return name;
}

/// Has the curve the key, but for a difference that the file cannot show? `factor` leads from its
/// values to the channel's.
bool IsKeyed(const CurveRecord& record, double frame, double value, double factor) {
  const CurveKey* const key = record.curve.FindKey(frame);
  if (key == nullptr) return false;
  if (key->value * factor == value || key->value == value / factor) return true;
  const auto shown = text::WholeReal(InFileUnit(value / factor, record.valueFactor));
  return shown && *shown * record.valueFactor == key->value;
}

}  // namespace

struct Scene::Impl {
  explicit Impl(SceneData read)
      : data(std::move(read)), hierarchy(MakeHierarchy(data)), drivers(data, hierarchy) {}
  Impl(const Impl&) = delete;
  Impl& operator=(const Impl&) = delete;

  ItemId ItemOf(NodeId node) const { return hierarchy.nodes[node].item; }
  const Item& At(NodeId node) const { return data.items[ItemOf(node)]; }
  Plug PlugOf(NodeId node, Channel channel) const { return {ItemOf(node), CodeOf(channel)}; }

  bool HasChannels(NodeId node) const {
    const NodeKind kind = hierarchy.nodes[node].kind;
    return kind == NodeKind::kTransform || kind == NodeKind::kJoint;
  }

  Drivers::Source SourceOf(NodeId node, Channel channel) const {
    return HasChannels(node) ? drivers.Find(PlugOf(node, channel)) : Drivers::Source{};
  }

  /// A curve whose values reach their channel through a factor, as the channel meets it.
  struct Converted {
    Curve curve;
    unsigned revision = 0;
    bool isMade = false;
  };
  const Curve* Convert(Plug plug, const CurveRecord& record, double factor) {
    Converted& converted = conversions[plug];
    if (!converted.isMade || converted.revision != record.revision) {
      converted = {record.curve, record.revision, true};
      for (CurveKey& key : converted.curve.keys) {
        key.value *= factor;
        key.inTangent.y *= factor;
        key.outTangent.y *= factor;
      }
    }
    return &converted.curve;
  }

  bool IsChannel(Plug plug) const {
    return plug.code < kChannelCount && data.IsDag(plug.item) &&
           HasChannels(data.items[plug.item].node);
  }

  /// Sorts by node path, then channel order.
  std::vector<DrivenChannel> Sorted(std::vector<DrivenChannel> channels) {
    if (channels.size() < 2) return channels;
    if (pathRanks.empty()) pathRanks = PathRanks(data, hierarchy);
    const auto place = [&](const DrivenChannel& channel) {
      return std::pair(pathRanks[hierarchy.nodes[channel.node].firstPath], channel.channel);
    };
    std::sort(channels.begin(), channels.end(),
              [&](const DrivenChannel& a, const DrivenChannel& b) { return place(a) < place(b); });
    return channels;
  }

  /// The channels that each curve drives. A curve that is attached later drives one alone, and need
  /// not be among them.
  const std::unordered_multimap<ItemId, Plug>& ChannelsByCurve() {
    if (channelsByCurve.empty()) {
      std::unordered_multimap<ItemId, Plug> found;
      for (const auto& [destination, source] : data.connections) {
        if (!IsChannel(destination)) continue;
        const Drivers::Source behind = drivers.Find(destination);
        if (behind.driver == Driver::kCurve) found.emplace(behind.item, destination);
      }
      channelsByCurve = std::move(found);
    }
    return channelsByCurve;
  }

  SceneData data;
  Hierarchy hierarchy;
  Drivers drivers;
  std::unordered_map<Plug, Converted, PlugHash> conversions;
  std::unordered_multimap<ItemId, Plug> channelsByCurve;  // made when first needed
  std::vector<std::uint32_t> pathRanks;                   // likewise
  struct AddedCurve {
    ItemId curve;
    NodeId node;
    Channel channel;
  };
  std::vector<AddedCurve> addedCurves;
  FrameRange range;
  std::vector<Edit> rangeEdits;
  std::string addedText;
  std::vector<std::pair<std::string, std::string>> addedSounds;  // file and node
};

Scene::Scene(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}
Scene::Scene(Scene&&) noexcept = default;
Scene& Scene::operator=(Scene&&) noexcept = default;
Scene::~Scene() = default;

namespace {

/// What is wrong with the scene as a whole is said of the file.
template <class Make>
auto Named(const std::string& name, Make make) {
  try {
    return make();
  } catch (const SceneError&) {
    throw;
  } catch (const std::runtime_error& error) {
    throw SceneError(name + ": " + error.what());
  }
}

}  // namespace

Scene Scene::Open(const std::string& fileName,
                  const std::function<void(std::size_t, std::size_t)>& progress) {
  std::string text;
  std::string reason;
  if (!text::ReadFile(fileName, text, reason)) throw SceneError(fileName + ": " + reason);
  return Parse(std::move(text), fileName, progress);
}

Scene Scene::Parse(std::string text, const std::string& name,
                   const std::function<void(std::size_t, std::size_t)>& progress) {
  return Named(name, [&] {
    return Scene(std::make_unique<Impl>(ReadScene(std::move(text), name, progress)));
  });
}

const std::vector<std::string>& Scene::ReadingNotes() const {
  return impl_->data.notes;
}
const std::vector<std::string>& Scene::References() const {
  return impl_->data.references;
}

const CodePage& Scene::Page() const {
  return impl_->data.page;
}

const std::string& Scene::TimeUnit() const {
  return impl_->data.timeUnit;
}
double Scene::FramesPerSecond() const {
  return impl_->data.framesPerSecond;
}
double Scene::CentimetresPerUnit() const {
  return impl_->data.centimetresPerUnit;
}
const std::string& Scene::LinearUnit() const {
  return impl_->data.linearUnit;
}
const std::string& Scene::AngularUnit() const {
  return impl_->data.angularUnit;
}
double Scene::UnitSize(Channel channel) const {
  const Unit unit = UnitOf(CodeOf(channel));
  if (unit == Unit::kPlain) return 1.0;
  return unit == Unit::kAngle ? impl_->data.radiansPerUnit : impl_->data.centimetresPerUnit;
}
double Scene::StartTime() const {
  return impl_->data.startTime;
}

std::size_t Scene::PathCount() const {
  return impl_->hierarchy.paths.size();
}
NodeId Scene::NodeOf(PathId path) const {
  return impl_->hierarchy.paths[path].node;
}
PathId Scene::ParentPath(PathId path) const {
  return impl_->hierarchy.paths[path].parent;
}
std::string Scene::FullPath(PathId path) const {
  return FullPathOf(impl_->data, impl_->hierarchy, path);
}
std::string Scene::ShownPath(PathId path) const {
  return ShownPathOf(impl_->data, impl_->hierarchy, path);
}
std::string Scene::ShortestName(PathId path) const {
  return ShortestNameOf(impl_->data, impl_->hierarchy, path);
}

std::size_t Scene::NodeCount() const {
  return impl_->hierarchy.nodes.size();
}
const std::string& Scene::Name(NodeId node) const {
  return impl_->At(node).name;
}
const std::string& Scene::Type(NodeId node) const {
  return impl_->data.TypeOf(impl_->ItemOf(node)).name;
}
NodeKind Scene::Kind(NodeId node) const {
  return impl_->hierarchy.nodes[node].kind;
}
bool Scene::IsInFile(NodeId node) const {
  return impl_->At(node).isInFile;
}
PathId Scene::FirstPath(NodeId node) const {
  return impl_->hierarchy.nodes[node].firstPath;
}
NodeId Scene::FirstParent(NodeId node) const {
  return NodeOf(ParentPath(FirstPath(node)));
}

TransformValues Scene::ValuesAt(
    NodeId node, double frame,
    const std::function<void(const std::string&, const std::string&)>& unread) const {
  if (!impl_->HasChannels(node)) return {};
  const ItemId item = impl_->ItemOf(node);
  const Drivers::Plan& plan = impl_->drivers.PlanOf(item);
  TransformValues values = plan.values;
  const auto read = [&](const Drivers::Plan::Input& input) {
    if (input.curve != nullptr) {
      const Curve& curve = input.curve->curve;
      // A curve that was just made drives nothing before its first key.
      if (input.curve->isNew && curve.keys.empty()) return;
      SetComponent(values, input.code, curve.ValueAt(frame) * input.factor);
      return;
    }
    const Drivers::Value value = impl_->drivers.Evaluate({item, input.code}, frame);
    SetComponent(values, input.code, value.value);
    if (unread && value.unread != kNoItem) {
      unread(TransformAttributeName(input.code), impl_->data.NameOf(value.unread));
    }
  };
  // Whether a joint compensates decides whether its parent's scale is asked for.
  const auto isSwitch = [](const Drivers::Plan::Input& input) {
    return input.code == plug::kSegmentScaleCompensate;
  };
  for (const Drivers::Plan::Input& input : plan.inputs) {
    if (isSwitch(input) && Counts(values, input.code)) read(input);
  }
  for (const Drivers::Plan::Input& input : plan.inputs) {
    if (!isSwitch(input) && Counts(values, input.code)) read(input);
  }
  return values;
}

Driver Scene::DriverOf(NodeId node, Channel channel) const {
  return impl_->SourceOf(node, channel).driver;
}

const std::string& Scene::DriverType(NodeId node, Channel channel) const {
  static const std::string none;
  const Drivers::Source source = impl_->SourceOf(node, channel);
  const bool isInFile = source.item != kNoItem && !impl_->data.IsMissing(source.item);
  return isInFile ? impl_->data.TypeOf(source.item).name : none;
}

const std::string& Scene::DriverName(NodeId node, Channel channel) const {
  static const std::string none;
  const Drivers::Source source = impl_->SourceOf(node, channel);
  return source.item == kNoItem ? none : impl_->data.NameOf(source.item);
}

bool Scene::IsLocked(NodeId node, Channel channel) const {
  const std::size_t own = CodeOf(channel);
  const std::size_t compound = kChannelCount + own / 3;
  return (impl_->At(node).locks >> own & 1) != 0 || (impl_->At(node).locks >> compound & 1) != 0;
}

const Curve* Scene::CurveOf(NodeId node, Channel channel) const {
  const Drivers::Source source = impl_->SourceOf(node, channel);
  if (source.driver != Driver::kCurve) return nullptr;
  const CurveRecord& record = impl_->drivers.Load(impl_->data.curves[source.item]);
  if (source.factor == 1.0) return &record.curve;
  return impl_->Convert(impl_->PlugOf(node, channel), record, source.factor);
}

Refusal Scene::RefusalOf(NodeId node, Channel channel) const {
  if (!impl_->HasChannels(node)) return Refusal::kNoChannel;
  if (IsLocked(node, channel)) return Refusal::kLocked;
  const Drivers::Source source = impl_->SourceOf(node, channel);
  if (source.isLost) return Refusal::kLostValues;
  if (source.driver == Driver::kOther) return Refusal::kOther;
  const bool isUnread =
      source.driver == Driver::kCurve && impl_->data.curves[source.item].hasUnreadKeys;
  return isUnread ? Refusal::kUnreadKeys : Refusal::kNone;
}

bool Scene::AttachCurve(NodeId node, Channel channel) {
  if (RefusalOf(node, channel) != Refusal::kNone) return false;
  if (DriverOf(node, channel) == Driver::kCurve) return true;

  SceneData& data = impl_->data;
  const Plug plug = impl_->PlugOf(node, channel);
  const Unit unit = UnitOf(plug.code);
  const std::uint32_t type = data.InternType(unit == Unit::kLength  ? "animCurveTL"
                                             : unit == Unit::kAngle ? "animCurveTA"
                                                                    : "animCurveTU");
  const ItemId item = data.AddItem(CurveNameOf(Name(node), channel), type, kNoItem);
  data.items[item].isInFile = false;
  CurveRecord& record = data.curves[item];
  record.isNew = record.isLoaded = true;
  record.tangent = Tangent::kAuto;
  record.curve.weighted = false;
  record.curve.framesPerSecond = data.framesPerSecond;
  record.valueFactor = UnitSize(channel);
  impl_->addedCurves.push_back({item, node, channel});
  data.connections[plug] = {item, plug::kOutput};  // last: what is connected is also written
  impl_->drivers.ForgetPlan(plug.item);
  return true;
}

void Scene::SetKey(NodeId node, Channel channel, double frame, double value) {
  if (!std::isfinite(frame)) throw std::invalid_argument("a key must have a finite time");
  const Drivers::Source source = impl_->SourceOf(node, channel);
  if (source.driver != Driver::kCurve) {
    throw std::logic_error(Name(node) + "." + ChannelName(channel) + " has no curve");
  }
  CurveRecord& record = impl_->drivers.Load(impl_->data.curves[source.item]);
  if (record.hasUnreadKeys) {
    throw std::logic_error(Name(node) + "." + ChannelName(channel) + " takes no keys");
  }
  if (IsKeyed(record, frame, value, source.factor)) return;
  record.curve.SetKey(frame, value / source.factor);
  ++record.revision;
}

void Scene::SetTangents(NodeId node, Channel channel, double frame, std::optional<Tangent> in,
                        std::optional<Tangent> out) {
  const Drivers::Source source = impl_->SourceOf(node, channel);
  if (source.driver != Driver::kCurve) return;
  CurveRecord& record = impl_->drivers.Load(impl_->data.curves[source.item]);
  if (record.curve.SetTangents(frame, in, out)) ++record.revision;
}

RangeChange Scene::ExtendPlaybackRange(double first, double last) {
  impl_->range.first = std::min(first, impl_->range.first);
  impl_->range.last = std::max(last, impl_->range.last);
  return standalone::ExtendPlaybackRange(impl_->data, impl_->range, impl_->rangeEdits);
}

SoundNode Scene::AddSound(const Sound& sound) {
  for (const auto& [file, node] : impl_->addedSounds) {
    if (file == sound.fileName) return {node, false};
  }
  SoundNode node = AddSoundNode(impl_->data, sound, impl_->addedText);
  impl_->addedSounds.emplace_back(sound.fileName, node.name);
  return node;
}

std::vector<Scene::DrivenChannel> Scene::DrivenChannels() const {
  std::vector<DrivenChannel> channels;
  for (const auto& [destination, source] : impl_->data.connections) {
    if (!impl_->IsChannel(destination)) continue;
    const NodeId node = impl_->data.items[destination.item].node;
    const auto channel = static_cast<Channel>(destination.code);
    if (const Curve* const curve = CurveOf(node, channel)) {
      channels.push_back({node, channel, curve});
    }
  }
  return impl_->Sorted(channels);
}

std::vector<Scene::DrivenChannel> Scene::SharersOf(NodeId node, Channel channel) const {
  const Drivers::Source source = impl_->SourceOf(node, channel);
  if (source.driver != Driver::kCurve) return {};
  const auto [first, last] = impl_->ChannelsByCurve().equal_range(source.item);
  std::vector<DrivenChannel> channels;
  for (auto at = first; at != last; ++at) {
    if (at->second == impl_->PlugOf(node, channel)) continue;
    const NodeId other = impl_->data.items[at->second.item].node;
    channels.push_back({other, static_cast<Channel>(at->second.code), nullptr});
  }
  return impl_->Sorted(channels);
}

void Scene::Write(std::ostream& out) const {
  std::vector<NewCurve> newCurves;
  std::size_t pathBytes = 0;
  for (const auto& [item, node, channel] : impl_->addedCurves) {
    // Without keys the host would evaluate it to zero.
    if (impl_->data.curves[item].curve.keys.empty()) continue;
    std::string plug = ShortestName(FirstPath(node)) + "." + ChannelShortName(channel);
    pathBytes += plug.size();
    if (pathBytes > kMaxPathBytes) {
      throw SceneError("the paths that the new curves need make more than " +
                       std::to_string(kMaxPathBytes) + " bytes");
    }
    newCurves.push_back({item, std::move(plug)});
  }
  WriteScene(impl_->data, newCurves, {impl_->rangeEdits, impl_->addedText}, out);
}

}  // namespace lipvane::standalone
