#include "cli/speak.h"

#include <cstddef>
#include <filesystem>
#include <ostream>
#include <vector>

#include "cli/input.h"
#include "cli/messages.h"
#include "cli/output.h"
#include "cli/pose_needs.h"
#include "lipvane/engine/bone_pose.h"
#include "lipvane/formats/lbp.h"
#include "lipvane/formats/ltf.h"
#include "lipvane/formats/phonemes.h"
#include "lipvane/speech/label_kinds.h"
#include "lipvane/speech/meanings.h"
#include "lipvane/speech/phones.h"
#include "lipvane/speech/shapes_file.h"
#include "lipvane/text/numbers.h"
#include "lipvane/text/printable.h"

namespace lipvane::cli {
namespace {

std::string WithoutFolder(const std::string& fileName) {
  return std::filesystem::path(fileName).filename().string();
}

class Speaking {
 public:
  explicit Speaking(const SpeakOptions& options) : options_(options) {}

  bool Read() {
    std::vector<InputArgument> arguments = {{options_.timing, FileFormat::kTiming},
                                            {options_.lbp, FileFormat::kLbp}};
    if (!options_.shapes.empty()) {
      arguments.push_back(
          {options_.shapes, FileFormat::kUnknown, "--shapes", "rows of mouth shapes"});
    }
    const auto inputs = ReadInputs(arguments);
    if (!inputs) return false;
    lbp_ = (*inputs)[1];
    ReadProblem problem;
    if (!speech::ReadTimingText((*inputs)[0].text, options_.timingOptions, timing_, problem)) {
      PrintProblem(timingName_, problem);
      return false;
    }
    if (!ReadLbpText(lbp_.text, rig_, mapping_, problem)) {
      PrintProblem(lbp_, problem);
      return false;
    }
    if (mapping_.speechTargets.empty()) {
      PrintError(lbpName_ + ": it has no speech targets, so the face cannot speak");
      return false;
    }
    if (!HasPoses(lbp_, rig_, options_.force)) return false;
    if (options_.shapes.empty()) return true;
    const InputFile& shapes = inputs->back();
    if (speech::ReadShapesText(shapes.text, mapping_.SpeechTargetCount(), shapes_, problem)) {
      return true;
    }
    PrintProblem(shapes, problem);
    return false;
  }

  bool Animate(TAnimation& animation) {
    speech::Meanings meanings(mapping_, timing_.shapes);
    if (!options_.shapes.empty()) meanings.ReplaceShapes(shapes_);
    const speech::Meanings sounds(mapping_, speech::ShapeSet::kNone);
    const speech::Weights* standIn = nullptr;
    if (!options_.unknown.empty()) {
      standIn = sounds.Of(options_.unknown).weights;
      if (standIn == nullptr) {
        PrintError("--unknown: " + text::QuotedLine(options_.unknown) + " is no phoneme of " +
                   lbpName_);
        return false;
      }
    }
    std::vector<speech::UnknownLabel> unknown;
    const auto phones = speech::PhonesOf(timing_, meanings, standIn, unknown);
    if (!AreSettled(unknown, speech::FindWordsTier(timing_, meanings))) return false;
    if (const auto words = speech::FindUnknownWords(timing_, meanings); !words.text.empty()) {
      PrintNote(timingName_ + ":" + std::to_string(words.line) + ": " + words.text);
    }
    speech::LeftOut leftOut;
    animation = speech::SpeechTracks(phones, timing_.end, meanings.Silence(),
                                     mapping_.speechTargets, options_.trackOptions, leftOut);
    NoteLeftOut(leftOut.merged, "too short for keys of its own and merged into its neighbour",
                "too short for keys of their own and merged into their neighbours");
    NoteLeftOut(leftOut.beforeStart, "moved before the beginning by the lead and left out",
                "moved before the beginning by the lead and left out");
    return rig_.poses.empty() || HasPosesFor(lbp_, rig_, timingName_, animation, options_.force);
  }

  /// For whoever opens the file.
  std::vector<std::string> HeaderLines() const {
    const speech::TrackOptions& tracks = options_.trackOptions;
    std::string source = WithoutFolder(timingName_) + " (" + timing_.format;
    if (!timing_.tier.empty()) source += ", " + timing_.tier;
    std::string how = "Times are in milliseconds. Ramp " + text::RoundedReal(tracks.rampMs) +
                      ", lead " + text::RoundedReal(tracks.leadMs) + ", strength " +
                      text::RoundedReal(tracks.strength) + ".";
    if (!options_.shapes.empty())
      how += " Mouth shapes: " + WithoutFolder(InputName(options_.shapes)) + ".";
    if (!options_.unknown.empty()) how += " Unknown labels: " + options_.unknown + ".";
    return {HeaderLine("Made by lipvane speak from " + source + ") for " + WithoutFolder(lbpName_) +
                       "."),
            HeaderLine(how)};
  }

 private:
  /// Whether every label has a meaning, be it the one for unknown labels; says which have none, and
  /// when they are words. By their look alone they may be sounds that --unknown is meant for.
  bool AreSettled(const std::vector<speech::UnknownLabel>& unknown,
                  const speech::WordsTier& words) const {
    std::string start = timingName_ + ": ";
    if (words.isNamed && (unknown.empty() || !options_.unknown.empty())) {
      PrintError(start + words.text);
      return false;
    }
    if (unknown.empty()) return true;
    if (!words.text.empty()) start += words.text + ". ";
    std::string list;
    for (const speech::UnknownLabel& label : unknown) {
      list += "\n  " + timingName_ + ":" + std::to_string(label.line) + ": " +
              text::QuotedLine(label.text) + " at " + text::RoundedReal(label.start) + " s";
      if (label.count > 1) list += ", " + std::to_string(label.count) + " times";
      if (!label.phoneme.empty()) {
        list += " (the phoneme " + std::string(label.phoneme) + ", which the face lacks)";
      }
    }
    const bool isOne = unknown.size() == 1;
    const std::string count = std::to_string(unknown.size()) + (isOne ? " label" : " labels");
    if (!options_.unknown.empty()) {
      PrintNote(start + options_.unknown + " stands for " + count +
                " that nothing else explains:" + list);
      return true;
    }
    PrintError(start + count + (isOne ? " stands" : " stand") + " for no phoneme of " + lbpName_ +
               ":" + list +
               "\nWords need an aligner first; --tier names another tier. --unknown PHONEME says "
               "what stands for all of these (Sil is silence), --shapes FILE gives them weights of "
               "their own.");
    return false;
  }

  void NoteLeftOut(const std::vector<std::size_t>& labels, const char* one,
                   const char* many) const {
    if (labels.empty()) return;
    const speech::TimedLabel& first = timing_.labels[labels.front()];
    const std::string label =
        text::QuotedLine(first.text) + " at " + text::RoundedReal(first.start) + " s";
    PrintNote(timingName_ + ":" + std::to_string(first.line) + ": " +
              (labels.size() == 1
                   ? label + " is " + one
                   : label + " and " + std::to_string(labels.size() - 1) + " more are " + many));
  }

  /// Names may hold what would end a line or begin a comment.
  static std::string HeaderLine(const std::string& text) {
    std::string line = text::PrintableLine(text);
    for (std::size_t i = 0; (i = line.find("//", i)) != std::string::npos;)
      line.insert(i + 1, " ");
    return line;
  }

  const SpeakOptions& options_;
  const std::string timingName_ = InputName(options_.timing);
  const std::string lbpName_ = InputName(options_.lbp);
  speech::Timing timing_;
  InputFile lbp_;
  TBonePoseInfo rig_;
  PhonemeMapping mapping_;
  std::vector<speech::ShapeRow> shapes_;
};

}  // namespace

int Speak(const SpeakOptions& options) {
  if (!FolderExists(options.output)) return 1;
  Speaking speaking(options);
  TAnimation animation;
  if (!speaking.Read() || !speaking.Animate(animation)) return 1;
  std::string bytes;
  std::string reason;
  if (!LtfText(animation, speaking.HeaderLines(), bytes, reason)) {
    PrintError(options.output + ": " + reason);
    return 1;
  }
  return WriteOutput(options.output, [&](std::ostream& out) { out << bytes; }) ? 0 : 1;
}

}  // namespace lipvane::cli
