#include "cli/report.h"

#include <cstddef>
#include <map>

#include "cli/json.h"
#include "lipvane/formats/lbp.h"
#include "lipvane/formats/lbp_hierarchy.h"
#include "lipvane/formats/ltf.h"
#include "lipvane/host/standalone/limits.h"

namespace lipvane::cli {
namespace {

using standalone::Channel;
using standalone::Message;
using standalone::PathId;
using standalone::Scene;

/// One member a line, and one element a line where a member is a list of lists or objects: long
/// lists stay readable, and a comparison of two reports shows what changed.
std::string Document(const Json& object) {
  std::string text = "{\n";
  std::size_t membersLeft = object.size();
  for (const auto& [name, value] : object.items()) {
    text += "  " + OneLine(name) + ": ";
    if (value.is_array() && !value.empty() && value.front().is_structured()) {
      text += "[\n";
      for (std::size_t i = 0; i < value.size(); ++i) {
        text += "    " + OneLine(value[i]) + (i + 1 < value.size() ? ",\n" : "\n");
      }
      text += "  ]";
    } else {
      text += OneLine(value);
    }
    text += --membersLeft > 0 ? ",\n" : "\n";
  }
  return text + "}\n";
}

const char* KindName(Message::Kind kind) {
  switch (kind) {
    case Message::Kind::kError:
      break;
    case Message::Kind::kWarning:
      return "warning";
    case Message::Kind::kDiagnostic:
      return "diagnostic";
    case Message::Kind::kBox:
      return "box";
  }
  return "error";
}

Json MessageJson(const Message& message) {
  Json json = {{"kind", KindName(message.kind)}};
  if (message.kind == Message::Kind::kDiagnostic) json["label"] = message.label;
  if (message.kind == Message::Kind::kBox) json["title"] = message.title;
  json["text"] = message.text;
  return json;
}

Json CommandJson(const CommandRecord& command) {
  Json messages = Json::array();
  for (const Message& message : command.outcome.messages) {
    messages.push_back(MessageJson(message));
  }
  return {{"line", command.line},
          {"status", command.outcome.status.ok() ? "success" : "failure"},
          {"messages", std::move(messages)}};
}

/// Names paths while they are not too many and too long: nodes one below the other have paths that
/// grow with the square of their number.
class Paths {
 public:
  explicit Paths(const Scene& scene) : scene_(scene) {}

  std::string Full(PathId path) { return Counted(scene_.FullPath(path)); }
  std::string Shortest(PathId path) { return Counted(scene_.ShortestName(path)); }

 private:
  std::string Counted(std::string path) {
    bytes_ += path.size();
    if (bytes_ > standalone::kMaxPathBytes) {
      throw ReportError("the paths of the nodes to be named make more than " +
                        std::to_string(standalone::kMaxPathBytes) + " bytes");
    }
    return path;
  }

  const Scene& scene_;
  std::size_t bytes_ = 0;
};

Json CurvesJson(const Scene& scene, Paths& paths) {
  Json curves = Json::array();
  for (const Scene::DrivenChannel& driven : scene.DrivenChannels()) {
    const bool isLength = driven.channel <= Channel::kTranslateZ;
    const double unit = isLength ? scene.CentimetresPerUnit() : 1.0;
    Json keys = Json::array();
    for (const standalone::CurveKey& key : driven.curve->keys) {
      keys.push_back(Json::array({key.time, key.value / unit}));
    }
    curves.push_back({{"node", paths.Full(scene.FirstPath(driven.node))},
                      {"attribute", standalone::ChannelName(driven.channel)},
                      {"keys", std::move(keys)}});
  }
  return curves;
}

Json BoneJson(const TIndexedBone& bone) {
  return {{"index", bone.boneIndex},
          {"translation", VectorJson(bone.translation)},
          {"rotation", RotationJson(bone.rotation)}};
}

const std::string& AsItIs(const std::string& name) {
  return name;
}

/// Appends without a look for members of the same name, which would take longer with each: a table
/// has none.
template <typename Table, typename NameOf = const std::string& (*)(const std::string&)>
Json ObjectOf(const Table& table, const NameOf& nameOf = AsItIs) {
  Json object = Json::object();
  for (const auto& [key, value] : table)
    object.get_ref<Json::object_t&>().Json::object_t::Container::emplace_back(nameOf(key), value);
  return object;
}

Json HierarchyJson(const std::string& text) {
  std::map<int, std::string> nameByNumber;
  std::map<std::string, int> numberByName;
  std::map<std::string, std::string> parentByName;
  ReadLbpHierarchyText(text, nameByNumber, numberByName, parentByName);
  return {
      {"nameByNumber", ObjectOf(nameByNumber, [](int number) { return std::to_string(number); })},
      {"numberByName", ObjectOf(numberByName)},
      {"parentByName", ObjectOf(parentByName)}};
}

Json TracksJson(const std::vector<TAnimationTrack>& tracks) {
  Json json = Json::array();
  for (const TAnimationTrack& track : tracks) {
    Json keys = Json::array();
    for (int i = 0; i < track.KeyCount(); ++i) {
      keys.push_back(Json::array({track.GetKey(i)->time, track.GetKey(i)->value}));
    }
    json.push_back({{"name", track.name}, {"keys", std::move(keys)}});
  }
  return json;
}

}  // namespace

std::string RunReport(const std::vector<CommandRecord>& commands, const Scene& scene,
                      const standalone::StandaloneHost& host) {
  Paths paths(scene);
  Json report = {{"commands", Json::array()}, {"selection", Json::array()}};
  for (const CommandRecord& command : commands) {
    report["commands"].push_back(CommandJson(command));
  }
  for (const PathId path : host.Selection()) {
    report["selection"].push_back(paths.Shortest(path));
  }
  report["currentTime"] = host.CurrentTime();
  report["curves"] = CurvesJson(scene, paths);
  return Document(report);
}

std::string SceneReport(const Scene& scene) {
  Paths paths(scene);
  Json nodes = Json::array();
  for (PathId path = 0; path < scene.PathCount(); ++path) {
    const standalone::NodeId node = scene.NodeOf(path);
    if (!scene.IsInFile(node)) continue;
    nodes.push_back({{"path", paths.Full(path)}, {"type", scene.Type(node)}});
  }
  return Document({{"format", "ma"},
                   {"timeUnit", scene.TimeUnit()},
                   {"nodes", std::move(nodes)},
                   {"curves", CurvesJson(scene, paths)}});
}

std::string LbpReport(const std::string& text, TBonePoseInfo& poseInfo,
                      const PhonemeMapping& mapping) {
  Json phonemes = Json::array();
  for (std::size_t i = 0; i < mapping.phonemes.size(); ++i) {
    phonemes.push_back({{"name", mapping.phonemes[i]}, {"weights", mapping.weights[i]}});
  }
  Json poses = Json::array();
  for (TBonePose& pose : poseInfo.poses) {
    Json bones = Json::array();
    for (int i = 0; i < pose.BoneCount(); ++i)
      bones.push_back(BoneJson(pose.GetBone(i)));
    poses.push_back(std::move(bones));
  }
  return Document({{"format", "lbp"},
                   {"version", LBP_FORMAT_VERSION},
                   {"speechTargets", mapping.speechTargets},
                   {"phonemes", std::move(phonemes)},
                   {"bones", poseInfo.boneNames},
                   {"hierarchy", HierarchyJson(text)},
                   {"poses", std::move(poses)}});
}

std::string LtfReport(const TAnimation& animation) {
  return Document({{"format", "ltf"},
                   {"version", kLtfVersion},
                   {"length", animation.length},
                   {"tracks", TracksJson(animation.tracks)},
                   {"expressionTracks", TracksJson(animation.expressionTracks)}});
}

std::string CheckReport(const std::vector<check::Finding>& findings) {
  Json list = Json::array();
  std::map<check::Severity, std::size_t> counts;
  for (const check::Finding& finding : findings) {
    ++counts[finding.rule.severity];
    list.push_back({{"file", finding.file},
                    {"line", finding.line},
                    {"severity", check::SeverityName(finding.rule.severity)},
                    {"rule", finding.rule.id},
                    {"text", finding.text}});
  }
  return Document({{"findings", std::move(list)},
                   {"errors", counts[check::Severity::kError]},
                   {"warnings", counts[check::Severity::kWarning]},
                   {"notes", counts[check::Severity::kNote]}});
}

}  // namespace lipvane::cli
