#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/hostile/readers.h"
#include "tests/support/temporary_folder.h"

namespace lipvane::test {
namespace {

class Cuts : public testing::TestWithParam<Reader> {};

TEST_P(Cuts, WholeFilesAreRead) {
  const std::string folder = LIPVANE_SOURCE_DIR "/fuzz/seeds/" + GetParam().name;
  for (const auto& file : std::filesystem::directory_iterator(folder)) {
    const std::string answer = GetParam().answer(FileContent(file.path().string()));
    // The command lines end in one that is none.
    EXPECT_EQ(answer.substr(0, 4), GetParam().name == "mel" ? "no 6" : "yes ")
        << file.path() << ": " << answer;
  }
}

INSTANTIATE_TEST_SUITE_P(, Cuts, testing::ValuesIn(Readers()),
                         [](const auto& reader) { return reader.param.name; });

}  // namespace
}  // namespace lipvane::test
