#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "bench/naive/files.h"
#include "bench/random_face.h"
#include "bench/rows.h"
#include "lipvane/formats/lbp.h"
#include "tests/support/temporary_folder.h"

namespace lipvane::bench {
namespace {

LbpBone AsWritten(const TIndexedBone& bone) {
  Matrix4 matrix;
  bone.rotation.ToMatrix4(matrix);
  matrix.Translate(bone.translation);
  LbpBone written;
  std::copy(std::begin(matrix.m), std::end(matrix.m), written.matrix.begin());
  std::copy_n(written.matrix.begin() + 12, 3, written.translation.begin());
  return written;
}

naive::BoneNumbers NumbersOf(const LbpBone& bone) {
  naive::BoneNumbers numbers{};
  auto at = std::copy(bone.matrix.begin(), bone.matrix.end(), numbers.begin());
  at = std::copy(bone.translation.begin(), bone.translation.end(), at);
  at = std::copy(bone.scale.begin(), bone.scale.end(), at);
  const std::array<double, 4> rotation = QuaternionFromMatrix(bone.matrix);
  *at++ = -rotation[0];
  std::copy_n(rotation.begin() + 1, 3, at);
  return numbers;
}

/// A bone pose file of random poses, as the product writes it.
struct File {
  std::vector<std::vector<LbpBone>> poses;
  std::vector<std::vector<naive::BoneNumbers>> numbers;  ///< the same, for the naive reference
  std::string text;
  std::size_t posesBegin = 0;  ///< the place of the first pose's title in the text
  test::TemporaryFolder folder;
  std::string name;

  File(int boneCount, int poseCount) {
    TBonePoseInfo rig = RandomFace(3, Turns::kNear).Rig(boneCount, poseCount);
    for (const TBonePose& pose : rig.poses) {
      poses.emplace_back();
      numbers.emplace_back();
      for (const TIndexedBone& bone : pose.Bones()) {
        poses.back().push_back(AsWritten(bone));
        numbers.back().push_back(NumbersOf(poses.back().back()));
      }
    }
    LbpHeader header;
    header.boneCount = boneCount;
    header.headBoneName = "head";
    for (const std::string& bone : rig.boneNames)
      header.hierarchy.push_back({bone, "head"});
    std::ostringstream out;
    WriteLbpHeader(out, header);
    WriteLbpPoseCount(out, poseCount);
    posesBegin = static_cast<std::size_t>(out.tellp());
    WritePoses(out);
    text = out.str();
    name = folder.Make("face.lbp", text);
  }

  void WritePoses(std::ostream& out) const {
    for (std::size_t p = 0; p < poses.size(); ++p) {
      WriteLbpPoseLabel(out, static_cast<int>(p), "");
      WritePoseBoneLines(out, poses[p]);
      WriteLbpBlankLine(out);
    }
  }

  Contender Doing(const std::string& what, std::function<void()> work) const {
    return {what, std::move(work), static_cast<double>(text.size())};
  }
};

Contender Reading(int bones, int poses) {
  const auto file = std::make_shared<File>(bones, poses);
  return file->Doing("read " + std::to_string(bones) + "x" + std::to_string(poses), [file] {
    TBonePoseInfo rig;
    PhonemeMapping mapping;
    if (!ReadLbpFile(file->name, rig, mapping)) throw std::runtime_error(file->name);
    benchmark::DoNotOptimize(rig.poses.data());
  });
}

Contender ReadingNaive() {
  const auto file = std::make_shared<File>(300, 60);
  return file->Doing("read 300x60, naive in memory", [file] {
    std::vector<float> numbers;
    naive::ReadBoneLines(std::string_view(file->text).substr(file->posesBegin), numbers);
    benchmark::DoNotOptimize(numbers.data());
  });
}

Contenders Writing() {
  const auto file = std::make_shared<File>(300, 60);
  return {file->Doing("write",
                      [file] {
                        std::ofstream out(file->folder.Path("written.lbp"));
                        file->WritePoses(out);
                        out.close();
                        if (!out) throw std::runtime_error("the pose file could not be written");
                      }),
          file->Doing("write, naive in memory",
                      [file, buffer = std::vector<char>(2 * file->text.size())]() mutable {
                        benchmark::DoNotOptimize(naive::WritePoses(file->numbers, buffer));
                        benchmark::ClobberMemory();
                      })};
}

}  // namespace

std::vector<Row> FormatsRows() {
  return {
      {"LBP read 300x60, file to naive in memory", Ratio::kSpeed, 1.3, 2.0,
       [] {
         return Contenders{Reading(300, 60), ReadingNaive()};
       }},
      {"LBP read, MB/s at 300x60 to 60x20", Ratio::kSpeed, 0.7, 0.9,
       [] {
         return Contenders{Reading(300, 60), Reading(60, 20)};
       }},
      {"LBP write 300x60, file to naive in memory", Ratio::kTime, 0.9, 0.6, Writing},
  };
}

}  // namespace lipvane::bench
