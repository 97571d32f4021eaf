#include <benchmark/benchmark.h>

#include <fstream>
#include <memory>
#include <stdexcept>

#include "bench/lbp_data.h"
#include "bench/rows.h"
#include "tests/support/temporary_folder.h"

namespace lipvane::bench {
namespace {

struct File {
  LbpData data;
  test::TemporaryFolder folder;
  std::string name;

  File(int bones, int poses) : data(bones, poses), name(folder.Make("face.lbp", data.Text())) {}
  std::string Size() const {
    return std::to_string(data.Numbers()[0].size()) + "x" + std::to_string(data.Numbers().size());
  }
  double Bytes() const { return static_cast<double>(data.Text().size()); }
};

Contender Reading(int bones, int poses) {
  const auto file = std::make_shared<File>(bones, poses);
  return {"read " + file->Size(),
          [file] {
            TBonePoseInfo rig;
            PhonemeMapping mapping;
            if (!ReadLbpFile(file->name, rig, mapping)) throw std::runtime_error(file->name);
            benchmark::DoNotOptimize(rig.poses.data());
          },
          file->Bytes()};
}

Contender ReadingNaive() {
  const auto file = std::make_shared<File>(300, 60);
  return {"read " + file->Size() + ", naive in memory",
          [file] {
            std::vector<float> numbers;
            naive::ReadBoneLines(file->data.PoseSection(), numbers);
            benchmark::DoNotOptimize(numbers.data());
          },
          file->Bytes()};
}

Contenders WritingToToChars() {
  const auto file = std::make_shared<File>(300, 60);
  std::vector<char> buffer(2 * file->data.Text().size());
  return {{"write",
           [file] {
             std::ofstream out(file->folder.Path("written.lbp"));
             file->data.WritePoses(out);
             out.close();
             if (!out) throw std::runtime_error("the pose file could not be written");
           },
           file->Bytes()},
          {"write, naive in memory",
           [file, buffer]() mutable {
             benchmark::DoNotOptimize(naive::WritePoses(file->data.Numbers(), buffer));
             benchmark::ClobberMemory();
           },
           file->Bytes()}};
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
      {"LBP write 300x60, file to naive in memory", Ratio::kTime, 0.9, 0.6, WritingToToChars},
  };
}

}  // namespace lipvane::bench
