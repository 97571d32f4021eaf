// Every file cut at every byte, and with every byte changed.

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdlib>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "tests/hostile/readers.h"
#include "tests/support/allocations.h"
#include "tests/support/lbp_text.h"
#include "tests/support/temporary_folder.h"

namespace lipvane::test {
namespace {

const std::string kSource = LIPVANE_SOURCE_DIR "/";

/// Changes look for what a format hangs on; a flipped bit and a NUL come with them.
char DelimiterOf(const std::string& reader) {
  static const std::map<std::string, char> delimiters = {
      {"scene", '"'},  {"mel", '"'}, {"textgrid", '"'}, {"rhubarb_json", '{'}, {"rhubarb_xml", '<'},
      {"shapes", '/'}, {"ltf", '9'}, {"lbp", '9'},      {"hierarchy", '\n'}};
  const auto found = delimiters.find(reader);
  return found == delimiters.end() ? '\n' : found->second;
}

std::vector<std::string> FilesFor(const Reader& reader) {
  std::vector<std::string> files = SeedsOf(reader);
  if (reader.name == "lbp" || reader.name == "hierarchy")
    files.push_back(LbpText({"head", "jaw", "jaw"}, {{{}, {}, {}}, {{}, {}, {}}}));
  if (reader.name == "ltf") files.push_back(FileContent(kSource + "examples/hello.ltf"));
  if (reader.name == "textgrid") files.push_back(FileContent(kSource + "examples/hello.TextGrid"));
  if (reader.name == "scene") {
    for (const char* const name :
         {"tests/data/scenes/rotate_orders.ma", "tests/data/scenes/scaled_metres.ma",
          "examples/face_rig.ma", "examples/face_poses.ma"})
      files.push_back(FileContent(kSource + name));
  }
  return files;
}

class Cuts : public testing::TestWithParam<Reader> {
 protected:
  /// A reason with each refusal, and memory as the size has it: the most that a byte stands for is
  /// 13 of the 26 keys of a line of animation, of 16 bytes and twice while they grow; what no file
  /// goes without (an empty scene, the parsers' buffers) is far below the rest.
  static std::string ExpectAnAnswer(const std::string& bytes, const std::string& change) {
    // Of just this size, so that a look beyond shows.
    const std::vector<char> exact(bytes.begin(), bytes.end());
    const std::string_view text(exact.data(), exact.size());
    std::string answer;
    const std::size_t peak = PeakBytesOf([&] { answer = GetParam().answer(text); });
    EXPECT_LT(peak, 1000 * text.size() + 300000) << change;
    const std::string kind = answer.substr(0, answer.find(' '));
    EXPECT_TRUE(kind == "yes" || (kind == "no" && answer.size() > 5)) << change << ": " << answer;
    return answer;
  }
  /// Twice the same answer.
  static void Ask(const std::string& bytes, const std::string& change) {
    EXPECT_EQ(ExpectAnAnswer(bytes, change), GetParam().answer(bytes)) << change;
  }
  static std::array<char, 3> Replacements(char byte) {
    return {static_cast<char>(byte ^ 1), '\0', DelimiterOf(GetParam().name)};
  }
  static std::string Changed(std::string bytes, std::size_t place, char replacement) {
    bytes[place] = replacement;
    return bytes;
  }
};

TEST_P(Cuts, AreAnsweredAlikeWithinBounds) {
  const bool isThorough = std::getenv("LIPVANE_EVERY_BYTE") != nullptr;
  for (const std::string& whole : FilesFor(GetParam())) {
    const std::string answer = GetParam().answer(whole);
    // The command lines end in one that is none.
    EXPECT_EQ(answer.substr(0, 4), GetParam().name == "mel" ? "no 6" : "yes ") << answer;
    // The example faces are the same few lines again and again: some places are enough for every
    // day, and a prime number from one to the next meets every column.
    const std::size_t step = whole.size() < 10000 || isThorough ? 1 : 997;
    for (std::size_t i = 0; i < whole.size() && !HasFailure(); i += step) {
      const auto replacements = Replacements(whole[i]);
      Ask(whole.substr(0, i), "cut at " + std::to_string(i));
      Ask(Changed(whole, i, replacements[i % replacements.size()]),
          "changed at " + std::to_string(i));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(, Cuts, testing::ValuesIn(Readers()),
                         [](const auto& reader) { return reader.param.name; });

}  // namespace
}  // namespace lipvane::test
