#include "cli/summary.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <utility>
#include <vector>

#include "lipvane/formats/lbp.h"
#include "lipvane/text/numbers.h"

namespace lipvane::cli {
namespace {

using standalone::NodeId;
using standalone::NodeKind;
using standalone::PathId;
using standalone::Scene;

constexpr std::size_t kLineWidth = 80;
/// Longer lists are cut: who wants them whole takes the JSON.
constexpr std::size_t kMaxListed = 100;

std::string Number(double value) {
  std::string text;
  text::AppendReal(text, value);
  return text;
}

/// A title with its names below, as many on a line as fit.
std::string NameList(const std::string& title, const std::vector<std::string>& names) {
  std::string text = title + ": " + std::to_string(names.size()) + "\n";
  std::string line;
  for (const std::string& name : names) {
    if (!line.empty() && line.size() + 1 + name.size() > kLineWidth) {
      text += line + "\n";
      line.clear();
    }
    line += (line.empty() ? "  " : " ") + name;
  }
  return line.empty() ? text : text + line + "\n";
}

/// A title with its lines below.
std::string LineList(const std::string& title, const std::vector<std::string>& lines) {
  if (lines.empty()) return {};
  std::string text = title + ":\n";
  for (std::size_t i = 0; i < std::min(lines.size(), kMaxListed); ++i) {
    text += "  " + lines[i] + "\n";
  }
  if (lines.size() > kMaxListed) {
    text += "  ... and " + std::to_string(lines.size() - kMaxListed) + " more\n";
  }
  return text;
}

std::string NodeCounts(const Scene& scene) {
  std::map<std::string, std::size_t> counts;
  std::size_t all = 0;
  for (NodeId node = 0; node < scene.NodeCount(); ++node) {
    if (!scene.IsInFile(node)) continue;
    ++all;
    ++counts[scene.Type(node)];
  }
  std::string list;
  for (const auto& [type, count] : counts) {
    list += (list.empty() ? "" : ", ") + std::to_string(count) + " " + type;
  }
  return "Nodes: " + std::to_string(all) + (list.empty() ? "" : " (" + list + ")") + "\n";
}

/// Every joint, indented by the joints above it.
std::vector<std::string> JointTree(const Scene& scene) {
  std::vector<std::string> lines;
  std::vector<std::size_t> depths(scene.PathCount(), 0);  // of what stands below each path
  for (PathId path = 1; path < scene.PathCount(); ++path) {
    const NodeId node = scene.NodeOf(path);
    const std::size_t depth = depths[scene.ParentPath(path)];
    const bool isJoint = scene.Kind(node) == NodeKind::kJoint;
    depths[path] = depth + (isJoint ? 1 : 0);
    if (isJoint) lines.push_back(std::string(2 * depth, ' ') + scene.Name(node));
  }
  return lines;
}

std::string CurveCounts(const Scene& scene) {
  const auto driven = scene.DrivenChannels();
  std::size_t keyed = 0;
  double first = 0.0;
  double last = 0.0;
  for (const Scene::DrivenChannel& channel : driven) {
    const auto& keys = channel.curve->keys;
    if (keys.empty()) continue;
    first = keyed == 0 ? keys.front().time : std::min(first, keys.front().time);
    last = keyed == 0 ? keys.back().time : std::max(last, keys.back().time);
    ++keyed;
  }
  std::string text = "Animated channels: " + std::to_string(driven.size());
  if (keyed > 0) text += ", keys from frame " + Number(first) + " to " + Number(last);
  return text + "\n";
}

std::vector<std::string> NotEvaluated(const Scene& scene) {
  std::vector<std::string> lines;
  for (NodeId node = 1; node < scene.NodeCount(); ++node) {
    const NodeKind kind = scene.Kind(node);
    if (kind != NodeKind::kTransform && kind != NodeKind::kJoint) continue;
    scene.ValuesAt(node, scene.StartTime(),
                   [&](const std::string& attribute, const std::string& driver) {
                     std::string line = scene.FullPath(scene.FirstPath(node));
                     line.append(".").append(attribute).append(" is driven by ").append(driver);
                     lines.push_back(std::move(line));
                   });
  }
  return lines;
}

}  // namespace

std::string LbpSummary(const std::string& fileName, const TBonePoseInfo& poseInfo,
                       const PhonemeMapping& mapping) {
  return fileName + ": bone pose file (LBP), version " + std::to_string(LBP_FORMAT_VERSION) + "\n" +
         NameList("Speech targets", mapping.speechTargets) +
         NameList("Phonemes", mapping.phonemes) + NameList("Bones", poseInfo.boneNames) +
         "Poses: " + std::to_string(poseInfo.poses.size()) + "\n";
}

std::string SceneSummary(const std::string& fileName, const Scene& scene) {
  return fileName + ": Maya ASCII scene\n" + "Time unit: " + scene.TimeUnit() + " (" +
         Number(scene.FramesPerSecond()) + " frames a second), saved at frame " +
         Number(scene.StartTime()) + "\n" + "Linear unit: " + Number(scene.CentimetresPerUnit()) +
         " cm\n" + NodeCounts(scene) + LineList("Joints", JointTree(scene)) + CurveCounts(scene) +
         LineList("References (not read)", scene.References()) +
         LineList("Not evaluated (the value in the file stands in)", NotEvaluated(scene));
}

}  // namespace lipvane::cli
