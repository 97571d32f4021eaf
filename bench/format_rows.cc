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
  double Bytes() const { return static_cast<double>(data.Text().size()); }
};

Contender Reading(const std::shared_ptr<File>& file) {
  return {[file] {
            TBonePoseInfo rig;
            PhonemeMapping mapping;
            if (!ReadLbpFile(file->name, rig, mapping)) throw std::runtime_error(file->name);
            benchmark::DoNotOptimize(rig.poses.data());
          },
          file->Bytes()};
}

Contenders ReadingToFromChars() {
  const auto file = std::make_shared<File>(300, 60);
  return {Reading(file),
          {[file] {
             std::vector<float> numbers;
             naive::ReadBoneLines(file->data.PoseSection(), numbers);
             benchmark::DoNotOptimize(numbers.data());
           },
           file->Bytes()}};
}

Contenders ReadingOfLargeToSmall() {
  return {Reading(std::make_shared<File>(300, 60)), Reading(std::make_shared<File>(60, 20))};
}

Contenders WritingToToChars() {
  const auto file = std::make_shared<File>(300, 60);
  std::vector<char> buffer(2 * file->data.Text().size());
  return {{[file] {
            std::ofstream out(file->folder.Path("written.lbp"));
            file->data.WritePoses(out);
            out.close();
            if (!out) throw std::runtime_error("the pose file could not be written");
          }},
          {[file, buffer]() mutable {
            benchmark::DoNotOptimize(naive::WritePoses(file->data.Numbers(), buffer));
            benchmark::ClobberMemory();
          }}};
}

}  // namespace

std::vector<Row> FormatRows() {
  return {
      {"LBP read 300x60, file to naive in memory", Ratio::kSpeed, 1.3, 2.0, ReadingToFromChars},
      {"LBP read, MB/s at 300x60 to 60x20", Ratio::kSpeed, 0.7, 0.9, ReadingOfLargeToSmall},
      {"LBP write 300x60, file to naive in memory", Ratio::kTime, 0.9, 0.6, WritingToToChars},
  };
}

}  // namespace lipvane::bench
