#include "cli/summary.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <utility>
#include <vector>

#include "lipvane/formats/lbp.h"
#include "lipvane/formats/ltf.h"
#include "lipvane/host/standalone/shown_name.h"
#include "lipvane/text/numbers.h"

namespace lipvane::cli {
namespace {

using standalone::NodeId;
using standalone::NodeKind;
using standalone::PathId;
using standalone::Scene;

constexpr std::size_t kLineWidth = 80;

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

/// A title with lines below, of which the first ones are made and shown, the rest counted.
class LineList {
 public:
  explicit LineList(const std::string& title) : text_(title + "\n") {}

  template <typename Make>
  void Add(const Make& make) {
    if (++count_ <= kMaxListed) text_ += "  " + make() + "\n";
  }
  /// Empty when nothing was added.
  std::string Text() const { return count_ == 0 ? std::string() : TextWithTitle(); }
  std::string TextWithTitle() const {
    if (count_ <= kMaxListed) return text_;
    return text_ + "  ... and " + std::to_string(count_ - kMaxListed) + " more\n";
  }

 private:
  std::string text_;
  std::size_t count_ = 0;
};

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
std::string JointTree(const Scene& scene) {
  LineList list("Joints:");
  std::vector<std::size_t> depths(scene.PathCount(), 0);  // of what stands below each path
  for (PathId path = 1; path < scene.PathCount(); ++path) {
    const NodeId node = scene.NodeOf(path);
    const std::size_t depth = depths[scene.ParentPath(path)];
    const bool isJoint = scene.Kind(node) == NodeKind::kJoint;
    depths[path] = depth + (isJoint ? 1 : 0);
    if (isJoint) list.Add([&] { return std::string(2 * depth, ' ') + scene.Name(node); });
  }
  return list.Text();
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
  if (keyed > 0)
    text += ", keys from frame " + text::RoundedReal(first) + " to " + text::RoundedReal(last);
  return text + "\n";
}

std::string References(const Scene& scene) {
  LineList list("References (not read):");
  for (const std::string& file : scene.References()) {
    list.Add([&] { return file; });
  }
  return list.Text();
}

std::string NotEvaluated(const Scene& scene) {
  LineList list("Not evaluated (the value in the file stands in):");
  for (NodeId node = 1; node < scene.NodeCount(); ++node) {
    const NodeKind kind = scene.Kind(node);
    if (kind != NodeKind::kTransform && kind != NodeKind::kJoint) continue;
    const auto add = [&](const std::string& attribute, const std::string& driver) {
      list.Add([&] {
        std::string line = scene.ShownPath(scene.FirstPath(node));
        line.append(".")
            .append(attribute)
            .append(" is driven by ")
            .append(standalone::ShownName(driver));
        return line;
      });
    };
    scene.ValuesAt(node, scene.StartTime(), add);
  }
  return list.Text();
}

/// Every track with how many keys it has, from when to when, and its largest value.
std::string TrackList(const std::string& title, const std::vector<TAnimationTrack>& tracks) {
  LineList list(title + ": " + std::to_string(tracks.size()));
  for (const TAnimationTrack& track : tracks) {
    list.Add([&] {
      const int count = track.KeyCount();
      if (count == 0) return track.name + ": no keys";
      double most = track.GetKey(0)->value;
      for (int i = 1; i < count; ++i)
        most = std::max(most, track.GetKey(i)->value);
      return track.name + ": " + std::to_string(count) + (count == 1 ? " key, " : " keys, ") +
             std::to_string(track.GetKey(0)->time) + " to " +
             std::to_string(track.GetKey(count - 1)->time) + ", at most " + text::RoundedReal(most);
    });
  }
  return list.TextWithTitle();
}

}  // namespace

std::string LbpSummary(const std::string& fileName, const TBonePoseInfo& poseInfo,
                       const PhonemeMapping& mapping) {
  return fileName + ": bone pose file (LBP), version " + std::to_string(LBP_FORMAT_VERSION) + "\n" +
         NameList("Speech targets", mapping.speechTargets) +
         NameList("Phonemes", mapping.phonemes) + NameList("Bones", poseInfo.boneNames) +
         "Poses: " + std::to_string(poseInfo.poses.size()) + "\n";
}

std::string LtfSummary(const std::string& fileName, const TAnimation& animation) {
  return fileName + ": animation file (LTF), version " + text::RoundedReal(kLtfVersion) + "\n" +
         "Length: " + std::to_string(animation.length) + "\n" +
         TrackList("Speech target tracks", animation.tracks) +
         TrackList("Expression tracks", animation.expressionTracks);
}

std::string SceneSummary(const std::string& fileName, const Scene& scene) {
  return fileName + ": Maya ASCII scene\n" + "Time unit: " + scene.TimeUnit() + " (" +
         text::RoundedReal(scene.FramesPerSecond()) + " frames a second), saved at frame " +
         text::RoundedReal(scene.StartTime()) + "\n" +
         "Linear unit: " + text::RoundedReal(scene.CentimetresPerUnit()) + " cm\n" +
         NodeCounts(scene) + JointTree(scene) + CurveCounts(scene) + References(scene) +
         NotEvaluated(scene);
}

}  // namespace lipvane::cli
