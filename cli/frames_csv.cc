#include <algorithm>
#include <cmath>
#include <cstddef>
#include <ostream>
#include <string>

#include "cli/frame_writer.h"
#include "lipvane/plugin/pose_labels.h"
#include "lipvane/text/numbers.h"

namespace lipvane::cli {
namespace {

std::string Quoted(const std::string& name) {
  if (name.find_first_of(",\"\r\n") == std::string::npos) return name;
  std::string quoted = "\"";
  for (const char c : name) {
    quoted += c;
    if (c == '"') quoted += c;
  }
  return quoted + '"';
}

/// An empty cell where there is no number.
void AppendNumber(std::string& line, double value) {
  line += ',';
  if (std::isfinite(value)) line += text::ExactReal(value);
}

/// A frame a row; a column for time and inside, each pose's weight, each expression's, and the
/// seven numbers of each bone.
class CsvFrameWriter : public FrameWriter {
 public:
  void Begin(std::ostream& out, Playback& playback, double /*ticksPerSecond*/) override {
    // A blend makes a weight for every pose, a sampled track one for every track.
    weightCount_ = std::max(playback.Rig().poses.size(), playback.Animation().tracks.size() + 1);
    std::string line = "time,inside";
    const auto add = [&](const std::string& title) {
      line += ',';
      line += Quoted(title);
    };
    for (std::size_t i = 0; i < weightCount_; ++i) {
      const std::string name = plugin::PoseName(static_cast<int>(i), playback.Mapping());
      add("weight." + (name.empty() ? "pose " + std::to_string(i) : name));
    }
    for (const std::string& name : playback.ExpressionNames())
      add("expression." + name);
    for (const std::string& name : playback.BoneNames()) {
      for (const char* part : {".tx", ".ty", ".tz", ".qw", ".qx", ".qy", ".qz"})
        add(name + part);
    }
    out << line << '\n';
  }

  void WriteFrame(std::ostream& out, Playback& playback) override {
    std::string line = text::ExactReal(playback.Time()) + (playback.IsInside() ? ",1" : ",0");
    for (std::size_t i = 0; i < weightCount_; ++i) {
      // Before the first frame inside there are none.
      if (i < playback.Weights().size()) {
        AppendNumber(line, playback.Weights()[i]);
      } else {
        line += ',';
      }
    }
    for (const double weight : playback.ExpressionWeights())
      AppendNumber(line, weight);
    for (int i = 0; i < playback.Pose().BoneCount(); ++i) {
      const TIndexedBone& bone = playback.Pose().GetBone(i);
      const Vector3& t = bone.translation;
      const Quaternion& r = bone.rotation;
      for (const float part : {t.x, t.y, t.z, r.w, r.x, r.y, r.z})
        AppendNumber(line, static_cast<double>(part));
    }
    out << line << '\n';
  }

  void End(std::ostream& /*out*/) override {}

 private:
  std::size_t weightCount_ = 0;
};

}  // namespace

std::unique_ptr<FrameWriter> NewCsvFrameWriter() {
  return std::make_unique<CsvFrameWriter>();
}

}  // namespace lipvane::cli
