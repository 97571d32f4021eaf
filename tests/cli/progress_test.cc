#include "cli/progress.h"

#include <gtest/gtest.h>

#include <chrono>
#include <sstream>
#include <string>

namespace lipvane::cli {
namespace {

TEST(ProgressTest, ErasesWhatItDrew) {
  std::ostringstream out;
  const std::string bar = "Opening [" + std::string(15, '#') + std::string(15, ' ') + "] 50 %";
  const std::string erased = bar + "\r" + std::string(bar.size(), ' ') + "\r";
  {
    Progress progress(out, true, std::chrono::seconds(0));
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
  Progress(out, false, std::chrono::seconds(0)).Show("Opening", 1, 2);
  Progress(out, true, std::chrono::hours(1)).Show("Opening", 1, 2);
  Progress(out, true, std::chrono::seconds(0)).Show("Opening", 0, 0);
  EXPECT_EQ(out.str(), "");
}

}  // namespace
}  // namespace lipvane::cli
