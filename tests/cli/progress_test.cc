#include "cli/progress.h"

#include <gtest/gtest.h>

#include <chrono>
#include <sstream>
#include <string>

namespace lipvane::cli {
namespace {

TEST(ProgressTest, ErasesWhatItDrew) {
  std::ostringstream out;
  {
    Progress progress(out, true, std::chrono::seconds(0));
    progress.Show("Opening", 1, 2);
    const std::string bar = out.str();
    EXPECT_EQ(bar, "Opening [" + std::string(15, '#') + std::string(15, ' ') + "] 50 %");
    progress.Erase();
    EXPECT_EQ(out.str(), bar + "\r" + std::string(bar.size(), ' ') + "\r");
    out.str("");
    progress.Erase();
    EXPECT_EQ(out.str(), "");
  }
  EXPECT_EQ(out.str(), "");
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
