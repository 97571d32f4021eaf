#include "cli/report.h"

#include <cstddef>
#include <map>
#include <string_view>
#include <utility>
#include <vector>

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
using Elements = std::vector<std::string_view>;

/// One member a line, and one element a line where a member is a list of lists or objects: long
/// lists stay readable, and a comparison of two reports shows what changed.
std::string Document(Json::Members members) {
  std::string text = "{\n";
  std::size_t membersLeft = members.size();
  for (const auto& [name, value] : members) {
    text += "  " + Json(name).Text() + ": ";
    const auto elements = value.Text()[0] == '[' ? value.Elements() : Elements();
    if (!elements.empty() && (elements[0][0] == '[' || elements[0][0] == '{')) {
      text += "[\n";
      for (std::size_t i = 0; i < elements.size(); ++i) {
        text += "    ";
        (text += elements[i]) += i + 1 < elements.size() ? ",\n" : "\n";
      }
      text += "  ]";
    } else {
      text += value.Text();
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
    case Message::Kind::kNote:
      return "note";
  }
  return "error";
}

Json MessageJson(const Message& message) {
  Json json = Json::Object({{"kind", KindName(message.kind)}});
  if (message.kind == Message::Kind::kDiagnostic) json.Set("label", message.label);
  if (message.kind == Message::Kind::kBox) json.Set("title", message.title);
  json.Set("text", message.text);
  return json;
}

Json CommandJson(const CommandRecord& command) {
  Json messages = Json::List();
  for (const Message& message : command.outcome.messages) {
    messages.Push(MessageJson(message));
  }
  return Json::Object({{"line", command.line},
                       {"status", command.outcome.status.ok() ? "success" : "failure"},
                       {"messages", std::move(messages)}});
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
  Json curves = Json::List();
  for (const Scene::DrivenChannel& driven : scene.DrivenChannels()) {
    const bool isLength = driven.channel <= Channel::kTranslateZ;
    const double unit = isLength ? scene.CentimetresPerUnit() : 1.0;
    Json keys = Json::List();
    for (const standalone::CurveKey& key : driven.curve->keys) {
      keys.Push(Json::List({key.time, key.value / unit}));
    }
    curves.Push(Json::Object({{"node", paths.Full(scene.FirstPath(driven.node))},
                              {"attribute", standalone::ChannelName(driven.channel)},
                              {"keys", std::move(keys)}}));
  }
  return curves;
}

Json BoneJson(const TIndexedBone& bone) {
  return Json::Object({{"index", bone.boneIndex},
                       {"translation", VectorJson(bone.translation)},
                       {"rotation", RotationJson(bone.rotation)}});
}

Json HierarchyJson(const std::string& text) {
  std::map<int, std::string> nameByNumber;
  std::map<std::string, int> numberByName;
  std::map<std::string, std::string> parentByName;
  ReadLbpHierarchyText(text, nameByNumber, numberByName, parentByName);
  Json names = Json::Object();
  for (const auto& [number, name] : nameByNumber)
    names.Set(std::to_string(number), name);
  return Json::Object({{"nameByNumber", std::move(names)},
                       {"numberByName", numberByName},
                       {"parentByName", parentByName}});
}

Json TracksJson(const std::vector<TAnimationTrack>& tracks) {
  Json json = Json::List();
  for (const TAnimationTrack& track : tracks) {
    Json keys = Json::List();
    for (int i = 0; i < track.KeyCount(); ++i) {
      keys.Push(Json::List({track.GetKey(i)->time, track.GetKey(i)->value}));
    }
    json.Push(Json::Object({{"name", track.name}, {"keys", std::move(keys)}}));
  }
  return json;
}

}  // namespace

std::string RunReport(const std::vector<CommandRecord>& commands, const Scene& scene,
                      const standalone::StandaloneHost& host) {
  Paths paths(scene);
  Json lines = Json::List();
  for (const CommandRecord& command : commands)
    lines.Push(CommandJson(command));
  Json selection = Json::List();
  for (const PathId path : host.Selection())
    selection.Push(paths.Shortest(path));
  return Document({{"commands", std::move(lines)},
                   {"selection", std::move(selection)},
                   {"currentTime", host.CurrentTime()},
                   {"curves", CurvesJson(scene, paths)}});
}

std::string SceneReport(const Scene& scene) {
  Paths paths(scene);
  Json nodes = Json::List();
  for (PathId path = 0; path < scene.PathCount(); ++path) {
    const standalone::NodeId node = scene.NodeOf(path);
    if (!scene.IsInFile(node)) continue;
    nodes.Push(Json::Object({{"path", paths.Full(path)}, {"type", scene.Type(node)}}));
  }
  return Document({{"format", "ma"},
                   {"timeUnit", scene.TimeUnit()},
                   {"nodes", std::move(nodes)},
                   {"curves", CurvesJson(scene, paths)}});
}

std::string LbpReport(const std::string& text, TBonePoseInfo& poseInfo,
                      const PhonemeMapping& mapping) {
  Json phonemes = Json::List();
  for (std::size_t i = 0; i < mapping.phonemes.size(); ++i) {
    phonemes.Push(Json::Object({{"name", mapping.phonemes[i]}, {"weights", mapping.weights[i]}}));
  }
  Json poses = Json::List();
  for (TBonePose& pose : poseInfo.poses) {
    Json bones = Json::List();
    for (int i = 0; i < pose.BoneCount(); ++i)
      bones.Push(BoneJson(pose.GetBone(i)));
    poses.Push(bones);
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
  Json list = Json::List();
  std::map<check::Severity, std::size_t> counts;
  for (const check::Finding& finding : findings) {
    ++counts[finding.rule.severity];
    list.Push(Json::Object({{"file", finding.file},
                            {"line", finding.line},
                            {"severity", check::SeverityName(finding.rule.severity)},
                            {"rule", std::string(finding.rule.id)},
                            {"text", finding.text}}));
  }
  return Document({{"findings", std::move(list)},
                   {"errors", counts[check::Severity::kError]},
                   {"warnings", counts[check::Severity::kWarning]},
                   {"notes", counts[check::Severity::kNote]}});
}

}  // namespace lipvane::cli
