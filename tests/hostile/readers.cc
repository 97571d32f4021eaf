#include "tests/hostile/readers.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <map>
#include <ostream>
#include <stdexcept>
#include <streambuf>
#include <string_view>

#include "lipvane/engine/animation.h"
#include "lipvane/engine/bone_pose.h"
#include "lipvane/formats/lbp.h"
#include "lipvane/formats/lbp_hierarchy.h"
#include "lipvane/formats/ltf.h"
#include "lipvane/formats/phonemes.h"
#include "lipvane/host/standalone/mel.h"
#include "lipvane/host/standalone/scene.h"
#include "lipvane/speech/shapes_file.h"
#include "lipvane/speech/timing.h"
#include "tests/support/temporary_folder.h"

namespace lipvane::test {
namespace {

/// Takes no memory, so that what is measured is the reader's.
class Digest : private std::streambuf {
 public:
  void Add(std::string_view text) {
    Add(static_cast<double>(text.size()));
    AddBytes(text.data(), text.size());
  }
  void Add(double number) {
    std::array<char, sizeof number> bits;
    std::memcpy(bits.data(), &number, sizeof number);
    AddBytes(bits.data(), bits.size());
  }
  template <typename T>
  void AddAll(const std::vector<T>& values) {
    Add(static_cast<double>(values.size()));
    for (const T& value : values)
      Add(value);
  }
  template <typename Write>
  void AddWritten(const Write& write) {
    std::ostream out(this);
    write(out);
  }
  std::string Yes() const { return "yes " + std::to_string(value_); }

 private:
  void AddBytes(const char* bytes, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i)
      value_ = (value_ ^ static_cast<unsigned char>(bytes[i])) * 0x100000001B3U;
  }
  std::streamsize xsputn(const char* bytes, std::streamsize count) override {
    AddBytes(bytes, static_cast<std::size_t>(count));
    return count;
  }
  int overflow(int byte) override {
    const char one = static_cast<char>(byte);
    AddBytes(&one, 1);
    return 0;
  }

  std::uint64_t value_ = 0xCBF29CE484222325U;
};

void Demand(bool held, const char* what) {
  if (!held) throw std::logic_error(what);
}

std::string No(int line, const std::string& reason) {
  return "no " + std::to_string(line) + " " + reason;
}

std::string No(const ReadProblem& problem) {
  Demand(!problem.reason.empty() && problem.line >= 0, "a refusal without a reason");
  return No(problem.line, problem.reason);
}

/// Of a message that begins with the name of its file or source.
std::string No(const std::string& message, const std::string& name) {
  const std::size_t number = name.size() + 1;
  Demand(message.rfind(name + ":", 0) == 0 && message.size() > number, "it does not name the file");
  const std::size_t reason = message.find_first_not_of("0123456789", number);
  const bool hasLine = reason != number && reason != std::string::npos && message[reason] == ':';
  if (!hasLine) return No(0, message.substr(number));
  return No(std::stoi(message.substr(number)), message.substr(reason + 1));
}

std::string AnswerLbp(std::string_view bytes) {
  TBonePoseInfo info;
  PhonemeMapping mapping;
  ReadProblem problem;
  if (!ReadLbpText(bytes, info, mapping, problem)) {
    Demand(info.boneNames.empty() && info.boneIds.empty() && info.poses.empty() &&
               mapping.speechTargets.empty() && mapping.phonemes.empty() && mapping.weights.empty(),
           "a refused file leaves something behind");
    return No(problem);
  }
  Digest digest;
  digest.AddAll(mapping.speechTargets);
  digest.AddAll(mapping.phonemes);
  for (const std::vector<float>& row : mapping.weights)
    digest.AddAll(row);
  digest.AddAll(info.boneNames);
  for (const TBonePose& pose : info.poses) {
    digest.Add(pose.BoneCount());
    for (const TIndexedBone& bone : pose.Bones()) {
      for (const float number :
           {bone.translation.x, bone.translation.y, bone.translation.z, bone.rotation.w,
            bone.rotation.x, bone.rotation.y, bone.rotation.z})
        digest.Add(number);
      digest.Add(bone.boneIndex);
    }
  }
  return digest.Yes();
}

std::string AnswerHierarchy(std::string_view bytes) {
  std::map<int, std::string> nameByNumber;
  std::map<std::string, int> numberByName;
  std::map<std::string, std::string> parentByName;
  if (!ReadLbpHierarchyText(bytes, nameByNumber, numberByName, parentByName)) {
    Demand(nameByNumber.empty() && numberByName.empty() && parentByName.empty(),
           "a refused file leaves something behind");
    return No(0, "it gives none");
  }
  Digest digest;
  for (const auto& [number, name] : nameByNumber) {
    digest.Add(number);
    digest.Add(name);
  }
  for (const auto& [name, number] : numberByName) {
    const auto found = nameByNumber.find(number);
    Demand(found != nameByNumber.end() && found->second == name, "the tables disagree");
  }
  for (const auto& [name, parent] : parentByName) {
    digest.Add(name);
    digest.Add(parent);
  }
  return digest.Yes();
}

void AddTracks(const std::vector<TAnimationTrack>& tracks, Digest& digest) {
  digest.Add(static_cast<double>(tracks.size()));
  for (const TAnimationTrack& track : tracks) {
    digest.Add(track.name);
    digest.Add(track.KeyCount());
    for (int i = 0; i < track.KeyCount(); ++i) {
      digest.Add(track.GetKey(i)->time);
      digest.Add(track.GetKey(i)->value);
    }
  }
}

std::string AnswerLtf(std::string_view bytes) {
  TAnimation animation;
  ReadProblem problem;
  const bool isRead = ReadLtfText(bytes, animation, problem);
  // Tracks that were complete before a failure stay, undigested.
  Demand(isRead || animation.length == 0, "a refused animation is digested");
  Digest digest;
  AddTracks(animation.tracks, digest);
  AddTracks(animation.expressionTracks, digest);
  digest.Add(animation.length);
  return isRead ? digest.Yes() : No(problem) + ", before it " + digest.Yes();
}

void AddNodes(const standalone::Scene& scene, Digest& digest) {
  for (standalone::PathId path = 0; path < scene.PathCount(); ++path) {
    digest.Add(static_cast<double>(scene.ParentPath(path)));
    digest.Add(static_cast<double>(scene.NodeOf(path)));
  }
  for (standalone::NodeId node = 0; node < scene.NodeCount(); ++node) {
    digest.Add(scene.Name(node));
    digest.Add(scene.Type(node));
    digest.Add(static_cast<int>(scene.Kind(node)));
    const auto addUnread = [&](const std::string& attribute, const std::string& driver) {
      digest.Add(attribute);
      digest.Add(driver);
    };
    for (const auto& row : LocalMatrix(scene.ValuesAt(node, 10.0, addUnread)))
      for (const double element : row)
        digest.Add(element);
  }
}

std::string AnswerScene(std::string_view bytes) {
  try {
    const auto scene = standalone::Scene::Parse(std::string(bytes), "hostile.ma");
    Digest digest;
    digest.AddAll(scene.ReadingNotes());
    digest.AddAll(scene.References());
    digest.Add(scene.TimeUnit());
    digest.Add(scene.CentimetresPerUnit());
    digest.Add(scene.StartTime());
    AddNodes(scene, digest);
    for (const auto& driven : scene.DrivenChannels()) {
      digest.Add(static_cast<double>(driven.node));
      digest.Add(static_cast<int>(driven.channel));
      for (const standalone::CurveKey& key : driven.curve->keys) {
        digest.Add(key.time);
        digest.Add(key.value);
      }
    }
    Digest written;
    Digest expected;
    written.AddWritten([&](std::ostream& out) { scene.Write(out); });
    expected.AddWritten([&](std::ostream& out) { out << bytes; });
    Demand(written.Yes() == expected.Yes(), "unchanged, it is written otherwise than it was read");
    return digest.Yes();
  } catch (const standalone::SceneError& error) {
    return No(error.what(), "hostile.ma");
  }
}

std::string AnswerMel(std::string_view bytes) {
  standalone::MelSource source;
  source.text = bytes;
  source.name = "hostile.mel";
  source.hasLineNumbers = true;
  try {
    Digest digest;
    const auto isCommand = [](const std::string& word) {
      return word == "select" || word == "currentTime" || word == "facialAnim";
    };
    for (const standalone::MelCommand& command : SplitMel(source, isCommand)) {
      Demand(!command.words.empty(), "a command without words");
      digest.Add(command.line);
      digest.AddAll(command.words);
      digest.Add(command.place);
    }
    return digest.Yes();
  } catch (const standalone::MelError& error) {
    return No(error.what(), source.name);
  }
}

std::string AnswerShapes(std::string_view bytes) {
  std::vector<speech::ShapeRow> rows;
  ReadProblem problem;
  if (!speech::ReadShapesText(bytes, 2, rows, problem)) {
    Demand(rows.empty(), "a refused file leaves something behind");
    return No(problem);
  }
  Digest digest;
  for (const speech::ShapeRow& row : rows) {
    digest.Add(row.name);
    digest.AddAll(row.weights);
  }
  return digest.Yes();
}

std::string AnswerTiming(std::string_view bytes) {
  speech::Timing timing;
  ReadProblem problem;
  if (!speech::ReadTimingText(bytes, {}, timing, problem)) {
    Demand(timing.labels.empty() && timing.format.empty(),
           "a refused file leaves something behind");
    return No(problem);
  }
  Digest digest;
  digest.Add(timing.format);
  digest.Add(timing.tier);
  digest.Add(static_cast<int>(timing.shapes));
  digest.Add(timing.end);
  double before = 0.0;
  for (const speech::TimedLabel& label : timing.labels) {
    Demand(before <= label.start && label.start <= label.end && label.line > 0,
           "labels are out of order");
    before = label.end;
    digest.Add(label.text);
    digest.Add(label.start);
    digest.Add(label.end);
    digest.Add(label.line);
  }
  Demand(!timing.labels.empty() && before <= timing.end && timing.end <= speech::kLongest,
         "the end is none");
  return digest.Yes();
}

}  // namespace

void PrintTo(const Reader& reader, std::ostream* out) {
  *out << reader.name;
}

const std::vector<Reader>& Readers() {
  static const std::vector<Reader> readers = {
      {"lbp", AnswerLbp},
      {"hierarchy", AnswerHierarchy},
      {"ltf", AnswerLtf},
      {"scene", AnswerScene},
      {"mel", AnswerMel},
      {"shapes", AnswerShapes},
      // One function tells these apart by their content.
      {"textgrid", AnswerTiming},
      {"rhubarb_json", AnswerTiming},
      {"rhubarb_xml", AnswerTiming},
      {"rhubarb_tsv", AnswerTiming},
      {"papagayo", AnswerTiming},
      {"moho", AnswerTiming},
      {"timing_table", AnswerTiming},
  };
  return readers;
}

std::vector<std::string> SeedsOf(const Reader& reader) {
  std::vector<std::string> files;
  for (const auto& file :
       std::filesystem::directory_iterator(LIPVANE_SOURCE_DIR "/fuzz/seeds/" + reader.name))
    files.push_back(FileContent(file.path().string()));
  return files;
}

}  // namespace lipvane::test
