#include "cli/progress.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <sstream>
#include <string>

namespace lipvane::cli {
namespace {

TEST(ProgressTest, ErasesWhatItDrew) {
  std::ostringstream out;
  const std::string bar = "Opening [" + std::string(15, '#') + std::string(15, ' ') + "] 50 %";
  const std::string erased = bar + "\r" + std::string(bar.size(), ' ') + "\r";
  {
    Progress progress(out, true, std::chrono::seconds(0), [] { return 80; });
    progress.Show("Opening", 1, 2);
    EXPECT_EQ(out.str(), bar);
    progress.Erase();
    EXPECT_EQ(out.str(), erased);
    progress.Erase();
  }
  EXPECT_EQ(out.str(), erased) << "there was nothing left to erase";
}

TEST(ProgressTest, KeepsQuietOffTerminalsAndForShortWork) {
  std::ostringstream out;
  const auto width = [] { return 80; };
  Progress(out, false, std::chrono::seconds(0), width).Show("Opening", 1, 2);
  Progress(out, true, std::chrono::hours(1), width).Show("Opening", 1, 2);
  Progress(out, true, std::chrono::seconds(0), width).Show("Opening", 0, 0);
  EXPECT_EQ(out.str(), "");
}

TEST(ProgressTest, IsNarrowerThanTheTerminal) {
  for (std::size_t width = 1; width < 60; ++width) {
    std::ostringstream out;
    Progress progress(out, true, std::chrono::seconds(0), [&] { return width; });
    progress.Show("Saving", 1, 2);
    EXPECT_LT(out.str().size(), width);
    EXPECT_EQ(out.str().size(), std::min<std::size_t>(width - 1, width < 20 ? 11 : 44)) << width;
  }
}

}  // namespace
}  // namespace lipvane::cli
