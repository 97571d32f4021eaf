#include "cli/bake_results.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <ostream>
#include <utility>

#include "cli/file_format.h"
#include "cli/messages.h"
#include "cli/output.h"
#include "lipvane/scene/bone_curves.h"
#include "lipvane/text/numbers.h"
#include "lipvane/text/printable.h"

namespace lipvane::cli {
namespace {

using standalone::KeyedNode;
using standalone::RangeChange;

/// The file's name without its folders.
std::string Named(const std::string& fileName) {
  return text::QuotedLine(std::filesystem::path(fileName).filename().string());
}

std::string Frame(double frame) {
  return text::ExactReal(frame);
}

/// What is to be said of the range; empty when it stays.
std::string Sentence(const RangeChange& change) {
  if (change.isUnread) {
    return "the playback range stays: the scene sets it with more than plain numbers";
  }
  const auto was = [](const std::string& verb, const std::optional<double>& frame) {
    return frame ? " (it " + verb + " at " + Frame(*frame) + ")" : std::string();
  };
  std::string start;
  std::string end;
  if (change.newFirst)
    start = "starts at frame " + Frame(*change.newFirst) + was("started", change.oldFirst);
  if (change.newLast)
    end = "ends at frame " + Frame(*change.newLast) + was("ended", change.oldLast);
  if (start.empty() && end.empty()) return {};
  return "the playback range now " + start + (start.empty() || end.empty() ? "" : " and ") + end;
}

}  // namespace

bool IsKeyScript(const std::string& output) {
  return Ending(output) == ".mel";
}

void KeyedJoints::Add(standalone::NodeId joint, const std::vector<double>& frames) {
  const auto [place, isNew] = places_.try_emplace(joint, nodes_.size());
  if (isNew) {
    KeyedNode added{joint, {}, frames};
    for (std::size_t i = 0; i < scene::kPosedChannelCount; ++i)
      added.channels.push_back(static_cast<standalone::Channel>(i));
    nodes_.push_back(std::move(added));
    return;
  }
  std::vector<double>& all = nodes_[place->second].frames;
  all.insert(all.end(), frames.begin(), frames.end());
  std::sort(all.begin(), all.end());
  all.erase(std::unique(all.begin(), all.end()), all.end());
}

bool SaveKeyScript(const standalone::Scene& scene, const BakeOptions& options,
                   const std::vector<KeyedNode>& keyed, const std::string& nameSpace) {
  const std::string source = "Keys of the animation " + Named(options.ltf) + " with the poses of " +
                             Named(options.lbp) + " for the joints of " + Named(options.scene);
  const double rate = options.framesPerSecond.value_or(scene.FramesPerSecond());
  try {
    return WriteOutput(options.output, [&](std::ostream& out) {
      standalone::WriteKeyScript(scene, keyed, {source, nameSpace, rate}, out);
    });
  } catch (const standalone::SceneError& error) {
    PrintError(options.output + ": " + error.what());
    return false;
  }
}

void ShowAllOf(const std::vector<KeyedNode>& keyed, standalone::Scene& scene) {
  standalone::FrameRange range;
  for (const KeyedNode& node : keyed) {
    if (node.frames.empty()) continue;
    range.first = std::min(range.first, node.frames.front());
    range.last = std::max(range.last, node.frames.back());
  }
  if (range.first > range.last) return;
  const std::string note = Sentence(scene.ExtendPlaybackRange(range.first, range.last));
  if (!note.empty()) PrintNote(note);
}

bool ReadSound(const std::string& fileName, speech::WavHeader& header) {
  std::string reason;
  if (speech::ReadWavHeader(fileName, header, reason)) return true;
  PrintError(fileName + ": " + reason);
  return false;
}

void AddSound(const BakeOptions& options, const speech::WavHeader& header,
              standalone::Scene& scene) {
  // The host parts folders by slashes everywhere.
  const std::string name = std::filesystem::path(options.sound).generic_string();
  const double frames = header.Seconds() * scene.FramesPerSecond();
  const standalone::SoundNode node = scene.AddSound({name, options.start, frames});
  if (!node.isNew) {
    PrintNote("the scene has the sound " + name + " already, as " + node.name +
              ": that stays as it is");
  }
}

}  // namespace lipvane::cli
