#include "cli/bake.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <ostream>
#include <set>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "cli/messages.h"
#include "cli/output.h"
#include "cli/playback.h"
#include "cli/progress.h"
#include "cli/samples.h"
#include "cli/scene_file.h"
#include "lipvane/check/finding.h"
#include "lipvane/check/rules.h"
#include "lipvane/check/scene_check.h"
#include "lipvane/host/standalone/scene.h"
#include "lipvane/host/standalone/standalone_host.h"
#include "lipvane/scene/dag_search.h"
#include "lipvane/scene/pose_baking.h"
#include "lipvane/text/numbers.h"

namespace lipvane::cli {
namespace {

using standalone::Message;
using standalone::NodeKind;
using standalone::Refusal;
using standalone::Scene;

/// Keys are held in memory: this many take some ten gigabytes.
constexpr std::size_t kMaxKeys = std::size_t{1} << 26;

/// What stands between the file's bones and the scene's joints. Channels that take no keys are left
/// to the host, which tells of them when it is asked for curves.
void WarnOfScene(const Playback& playback, const BakeOptions& options, const Scene& scene) {
  std::vector<check::Finding> findings;
  check::CheckAgainstScene(options.lbp, playback.LbpText(), scene, options.scene, findings);
  for (const check::Finding& finding : findings) {
    const bool isOfChannel =
        finding.rule == check::rule::kChannelDriven || finding.rule == check::rule::kChannelLocked;
    if (!isOfChannel) PrintWarning(finding.text);
  }
}

class Baking {
 public:
  Baking(Playback& playback, standalone::StandaloneHost& host) : playback_(playback), host_(host) {
    const scene::DagSearch search(host_, playback_.BoneNames());
    for (const std::string& name : playback_.BoneNames()) {
      bones_.emplace_back(host_, search, name);
      jointCount_ += bones_.back().HasJoint() ? 1 : 0;
    }
  }

  std::size_t JointCount() const { return jointCount_; }

  void KeyFrame(double frame) {
    host_.SetCurrentTime(frame);
    bool isWhole = true;
    for (std::size_t i = 0; i < bones_.size(); ++i) {
      if (!bones_[i].HasJoint()) continue;
      if (bones_[i].Key(playback_.Pose().GetBone(static_cast<int>(i)), frame).ok()) continue;
      skippedBones_.insert(i);
      isWhole = false;
    }
    if (!isWhole && skippedFrames_++ == 0) firstSkipped_ = frame;
  }

  /// Of the frames whose pose is not finite.
  void WarnOfSkipped() const {
    if (skippedFrames_ == 0) return;
    const std::size_t others = skippedBones_.size() - 1;
    const std::string first = text::ExactReal(firstSkipped_);
    std::string warning = "bone \"" + playback_.BoneNames()[*skippedBones_.begin()] + "\"";
    if (others > 0) warning += " and " + std::to_string(others) + " more";
    warning += ": the pose is not finite at ";
    warning += skippedFrames_ == 1 ? "frame " + first
                                   : std::to_string(skippedFrames_) + " frames, the first " + first;
    PrintWarning(warning + ", no keys are set there");
  }

 private:
  Playback& playback_;
  standalone::StandaloneHost& host_;
  std::vector<scene::BoneBaker> bones_;
  std::size_t jointCount_ = 0;
  std::set<std::size_t> skippedBones_;
  std::size_t skippedFrames_ = 0;
  double firstSkipped_ = 0.0;
};

/// The frames that were baked.
struct Frames {
  double start = 0.0;
  std::size_t count = 0;

  double At(std::size_t i) const { return start + static_cast<double>(i); }
  bool Hold(double time) const {
    const double i = std::round(time - start);
    return i >= 0.0 && i < static_cast<double>(count) && start + i == time;
  }
};

/// Keys that the scene had at other times go on moving the joints: between the frames, or after
/// them.
void WarnOfOtherKeys(const Scene& scene, const std::vector<std::string>& boneNames,
                     const Frames& frames) {
  std::unordered_map<std::string_view, standalone::NodeId> nodes;  // the last of each name
  for (standalone::PathId path = 0; path < scene.PathCount(); ++path)
    nodes[scene.Name(scene.NodeOf(path))] = scene.NodeOf(path);
  std::size_t count = 0;
  std::string first;
  for (const std::string& name : boneNames) {
    const auto found = nodes.find(name);
    if (found == nodes.end() || scene.Kind(found->second) != NodeKind::kJoint) continue;
    for (std::size_t i = 0; i < scene::kPosedChannelCount; ++i) {
      const auto channel = static_cast<standalone::Channel>(i);
      const standalone::Curve* curve = scene.CurveOf(found->second, channel);
      if (curve == nullptr || scene.RefusalOf(found->second, channel) != Refusal::kNone) continue;
      const auto other =
          std::find_if(curve->keys.begin(), curve->keys.end(),
                       [&](const standalone::CurveKey& key) { return !frames.Hold(key.time); });
      if (other == curve->keys.end()) continue;
      if (count++ > 0) continue;
      first = scene.FullPath(scene.FirstPath(found->second)) + "." +
              standalone::ChannelName(channel) + " at frame " + text::ExactReal(other->time);
    }
  }
  if (count == 0) return;
  PrintWarning("keys that the scene had at other times stay, on " + std::to_string(count) +
               (count == 1 ? " channel: " : " channels, the first ") + first);
}

bool KeysFit(std::size_t frames, std::size_t joints) {
  const std::size_t keys = frames * joints * scene::kPosedChannelCount;
  if (keys <= kMaxKeys) return true;
  PrintError(std::to_string(frames) + " frames on " + std::to_string(joints) + " joints make " +
             std::to_string(keys) + " keys, more than the " + std::to_string(kMaxKeys) +
             " that a scene may be given at once");
  return false;
}

}  // namespace

int Bake(const BakeOptions& options) {
  if (!FolderExists(options.output)) return 1;
  Playback playback;
  if (!playback.Load(options.lbp, options.ltf)) return 1;
  Progress progress;
  auto scene = OpenScene(options.scene, progress);
  if (!scene) return 1;

  SampleRate rate{scene->FramesPerSecond(), options.ticksPerSecond};
  if (options.framesPerSecond) {
    rate.framesPerSecond = *options.framesPerSecond;
    if (rate.framesPerSecond != scene->FramesPerSecond()) {
      PrintWarning(options.scene + ": the scene shows " +
                   text::ExactReal(scene->FramesPerSecond()) +
                   " frames a second; at that rate the animation, baked for " +
                   text::ExactReal(rate.framesPerSecond) + ", has another speed");
    }
  }
  const auto frameCount = rate.CountUpTo(playback.Animation().length, options.ltf);
  if (!frameCount) return 1;

  standalone::StandaloneHost host(*scene, [&](const Message& message) {
    progress.Erase();
    PrintMessage(message);
  });
  WarnOfScene(playback, options, *scene);
  Baking baking(playback, host);
  if (baking.JointCount() == 0) {
    PrintError(options.scene + ": it has none of the joints of " + options.lbp);
    return 1;
  }
  if (!KeysFit(*frameCount, baking.JointCount())) return 1;
  const Frames frames{options.start, *frameCount};
  for (std::size_t i = 0; i < *frameCount; ++i) {
    playback.Play(rate.TimeOf(i));
    baking.KeyFrame(frames.At(i));
    progress.Show("Baking", i, *frameCount);
  }
  progress.Erase();
  baking.WarnOfSkipped();
  WarnOfOtherKeys(*scene, playback.BoneNames(), frames);
  return WriteOutput(options.output, [&](std::ostream& out) { scene->Write(out); }) ? 0 : 1;
}

}  // namespace lipvane::cli
