#include <cmath>
#include <ostream>
#include <utility>

#include "cli/frame_writer.h"
#include "cli/json.h"

namespace lipvane::cli {
namespace {

constexpr double kLargestWhole = 9007199254740992.0;  // of which each double below is one

/// A whole number without a decimal point.
Json Plain(double number) {
  if (std::abs(number) < kLargestWhole && number == std::floor(number)) {
    return static_cast<long long>(number);
  }
  return number;
}

Json BonesJson(Playback& playback) {
  Json bones = Json::List();
  for (int i = 0; i < playback.Pose().BoneCount(); ++i) {
    const TIndexedBone& bone = playback.Pose().GetBone(i);
    bones.Push(Json::Object({{"id", bone.boneIndex},
                             {"name", playback.BoneNames()[static_cast<std::size_t>(i)]},
                             {"translation", VectorJson(bone.translation)},
                             {"rotation", RotationJson(bone.rotation)}}));
  }
  return bones;
}

/// One object, a frame a line.
class JsonFrameWriter : public FrameWriter {
 public:
  void Begin(std::ostream& out, Playback& playback, double ticksPerSecond) override {
    out << "{\n  \"ticksPerSecond\": " << Plain(ticksPerSecond).Text()
        << ",\n  \"speechTargets\": " << Json(playback.Mapping().speechTargets).Text()
        << ",\n  \"expressions\": " << Json(playback.ExpressionNames()).Text()
        << ",\n  \"frames\": [";
  }

  void WriteFrame(std::ostream& out, Playback& playback) override {
    const Json frame = Json::Object({{"time", playback.Time()},
                                     {"inside", playback.IsInside()},
                                     {"weights", playback.Weights()},
                                     {"expressionWeights", playback.ExpressionWeights()},
                                     {"bones", BonesJson(playback)}});
    out << (isFirst_ ? "\n    " : ",\n    ") << frame.Text();
    isFirst_ = false;
  }

  void End(std::ostream& out) override { out << "\n  ]\n}\n"; }

 private:
  bool isFirst_ = true;
};

}  // namespace

std::unique_ptr<FrameWriter> NewJsonFrameWriter() {
  return std::make_unique<JsonFrameWriter>();
}

}  // namespace lipvane::cli
