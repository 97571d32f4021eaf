#include "cli/bake.h"

#include <algorithm>
#include <cstddef>
#include <set>
#include <utility>
#include <vector>

#include "cli/bake_results.h"
#include "cli/bake_warnings.h"
#include "cli/input.h"
#include "cli/messages.h"
#include "cli/output.h"
#include "cli/playback.h"
#include "cli/progress.h"
#include "cli/samples.h"
#include "cli/scene_file.h"
#include "lipvane/host/standalone/namespaces.h"
#include "lipvane/host/standalone/standalone_host.h"
#include "lipvane/scene/dag_search.h"
#include "lipvane/scene/pose_baking.h"
#include "lipvane/text/numbers.h"

namespace lipvane::cli {
namespace {

using standalone::Message;

class Baking {
 public:
  Baking(Playback& playback, standalone::StandaloneHost& host) : playback_(playback), host_(host) {
    const scene::DagSearch search(host_, playback_.BoneNames());
    for (const std::string& name : playback_.BoneNames()) {
      bones_.emplace_back(host_, search, name);
      if (bones_.back().HasJoint()) {
        joints_.push_back(*standalone::StandaloneHost::IdOf(bones_.back().Joint()));
      }
    }
    keyedFrames_.resize(bones_.size());
  }

  /// Those that keys are meant for.
  const std::vector<standalone::NodeId>& Joints() const { return joints_; }

  void KeyFrame(double frame) {
    host_.SetCurrentTime(frame);
    bool isWhole = true;
    for (std::size_t i = 0; i < bones_.size(); ++i) {
      if (!bones_[i].HasJoint()) continue;
      if (bones_[i].Key(playback_.Pose().GetBone(static_cast<int>(i)), frame).ok()) {
        keyedFrames_[i].push_back(frame);
        continue;
      }
      skippedBones_.insert(i);
      isWhole = false;
    }
    if (!isWhole && skippedFrames_++ == 0) firstSkipped_ = frame;
  }

  /// The joints, and the frames that they were keyed at.
  KeyedJoints Keyed() const {
    KeyedJoints keyed;
    for (std::size_t i = 0; i < bones_.size(); ++i) {
      if (const auto joint = standalone::StandaloneHost::IdOf(bones_[i].Joint()))
        keyed.Add(*joint, keyedFrames_[i]);
    }
    return keyed;
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
  std::vector<standalone::NodeId> joints_;
  std::vector<std::vector<double>> keyedFrames_;  // of each bone
  std::set<std::size_t> skippedBones_;
  std::size_t skippedFrames_ = 0;
  double firstSkipped_ = 0.0;
};

bool KeysFit(std::size_t frames, std::size_t joints) {
  const std::size_t keys = frames * joints * scene::kPosedChannelCount;
  if (keys <= kMaxBakedKeys) return true;
  PrintError(std::to_string(frames) + " frames on " + std::to_string(joints) + " joints make " +
             std::to_string(keys) + " keys, more than the " + std::to_string(kMaxBakedKeys) +
             " that a scene may be given at once");
  return false;
}

/// Takes from a namespace of the shot that a script is for what comes before the scene's own part,
/// which may be nothing, and answers it.
std::string TakeShotNamespace(const standalone::Scene& scene, std::string& nameSpace) {
  const std::set<std::string> there = standalone::NamespacesOf(scene);
  std::string taken;
  while (!nameSpace.empty() && there.count(nameSpace) == 0) {
    const std::size_t end = std::min(nameSpace.find(':'), nameSpace.size());
    taken += (taken.empty() ? "" : ":") + nameSpace.substr(0, end);
    nameSpace.erase(0, end + 1);
  }
  return taken;
}

}  // namespace

int Bake(const BakeOptions& options) {
  if (!FolderExists(options.output)) return 1;
  speech::WavHeader sound;
  if (!options.sound.empty() && !ReadSound(options.sound, sound)) return 1;
  auto inputs = ReadInputs({{options.scene, FileFormat::kScene},
                            {options.lbp, FileFormat::kLbp},
                            {options.ltf, FileFormat::kLtf}});
  if (!inputs) return 1;
  const InputFile& lbp = (*inputs)[1];
  const InputFile& ltf = (*inputs)[2];
  const std::string sceneName = inputs->front().name;
  Playback playback;
  if (!playback.Load(lbp, ltf, options.force)) return 1;
  Progress progress;
  auto scene = OpenScene(std::move(inputs->front()), progress);
  if (!scene) return 1;
  const bool isScript = IsKeyScript(options.output);
  std::string nameSpace = options.nameSpace;
  const std::string prefix = isScript ? TakeShotNamespace(*scene, nameSpace) : std::string();
  if (!HasNamespace(*scene, sceneName, nameSpace)) return 1;

  SampleRate rate{scene->FramesPerSecond(), options.ticksPerSecond};
  if (options.framesPerSecond) {
    rate.framesPerSecond = *options.framesPerSecond;
    // A script's frames are those of the shot, which may have another rate.
    if (!isScript && rate.framesPerSecond != scene->FramesPerSecond()) {
      PrintWarning(sceneName + ": the scene shows " + text::ExactReal(scene->FramesPerSecond()) +
                   " frames a second; at that rate the animation, baked for " +
                   text::ExactReal(rate.framesPerSecond) + ", has another speed");
    }
  }
  const double length = playback.Animation().length;
  auto frameCount = rate.CountUpTo(playback.Animation().length, ltf.name);
  if (!frameCount) return 1;
  // A mouth that shuts between two frames has shut on the second one.
  if (rate.IsBefore(*frameCount - 1, length)) ++*frameCount;

  standalone::StandaloneHost host(*scene, [&](const Message& message) {
    progress.Erase();
    PrintMessage(message);
  });
  host.SetNamespace(nameSpace);
  Baking baking(playback, host);
  if (!WarnOfJoints({*scene, sceneName, nameSpace}, lbp.name, playback.BoneNames(),
                    playback.Rig())) {
    return 1;
  }
  if (baking.Joints().empty()) {
    PrintError(sceneName + ": it has none of the joints of " + lbp.name);
    return 1;
  }
  if (!KeysFit(*frameCount, baking.Joints().size())) return 1;
  if (WarnOfLostKeys(*scene, baking.Joints()) == 0) {
    PrintError(sceneName + ": no channel of the joints of " + lbp.name + " takes a key");
    return 1;
  }
  const BakedFrames frames{options.start, *frameCount};
  for (std::size_t i = 0; i < *frameCount; ++i) {
    playback.Play(std::min(rate.TimeOf(i), length));
    baking.KeyFrame(frames.At(i));
    progress.Show("Baking", i, *frameCount);
  }
  progress.Erase();
  baking.WarnOfSkipped();
  WarnOfOtherKeys(*scene, baking.Joints(), frames);
  const KeyedJoints keyed = baking.Keyed();
  if (isScript) return SaveKeyScript(*scene, options, keyed.Nodes(), prefix) ? 0 : 1;
  ShowAllOf(keyed.Nodes(), *scene);
  if (!options.sound.empty()) AddSound(options, sound, *scene);
  return SaveScene(*scene, options.output, progress) ? 0 : 1;
}

}  // namespace lipvane::cli
