// SECURITY.md names every limit, with its value.

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "cli/bake.h"
#include "cli/samples.h"
#include "cli/summary.h"
#include "lipvane/check/finding.h"
#include "lipvane/formats/limits.h"
#include "lipvane/host/standalone/limits.h"
#include "lipvane/scene/dag_search.h"
#include "lipvane/speech/timing.h"
#include "lipvane/text/file.h"
#include "tests/support/temporary_folder.h"

namespace lipvane::test {
namespace {

const std::string kRoot = LIPVANE_SOURCE_DIR "/";

TEST(Limits, AreDocumentedWithTheirValues) {
  const std::vector<std::pair<std::string, std::uint64_t>> limits = {
      {"kMaxFileSize", text::kMaxFileSize},
      {"kMaxPipeSize", text::kMaxPipeSize},
      {"kMaxSpeechTargets", kMaxSpeechTargets},
      {"kMaxPoses", kMaxPoses},
      {"kMaxKeys", kMaxKeys},
      {"kMaxNodes", standalone::kMaxNodes},
      {"kMaxInstancePaths", standalone::kMaxInstancePaths},
      {"kMaxIndex", standalone::kMaxIndex},
      {"kMaxDriverSteps", standalone::kMaxDriverSteps},
      {"kMaxNameSearch", standalone::kMaxNameSearch},
      {"kMaxEdgesRenamed", standalone::kMaxEdgesRenamed},
      {"kMaxRivals", standalone::kMaxRivals},
      {"kMaxShownPath", standalone::kMaxShownPath},
      {"kMaxPathBytes", standalone::kMaxPathBytes},
      {"kMaxNotes", standalone::kMaxNotes},
      {"kMaxListed", cli::kMaxListed},
      {"kMostOfARule", check::kMostOfARule},
      {"kLongest", static_cast<std::uint64_t>(speech::kLongest)},
      {"kMaxVisits", scene::kMaxVisits},
      {"kMaxFrames", cli::kMaxFrames},
      {"kMaxBakedKeys", cli::kMaxBakedKeys}};
  const std::string document = FileContent(kRoot + "SECURITY.md");
  for (const auto& [name, value] : limits) {
    const std::string row = "| `" + name + "` | " + std::to_string(value) + " |";
    EXPECT_NE(document.find(row), std::string::npos) << row;
  }
  // One that was added to the headers of limits since.
  for (const char* file :
       {"lipvane/text/file.h", "lipvane/formats/limits.h", "lipvane/host/standalone/limits.h"}) {
    const std::string header = FileContent(kRoot + file);
    for (std::size_t at = header.find(" kM"); at != std::string::npos;
         at = header.find(" kM", at + 1)) {
      const std::string name = header.substr(at + 1, header.find(' ', at + 1) - at - 1);
      EXPECT_NE(document.find("| `" + name + "` |"), std::string::npos) << file << ": " << name;
    }
  }
}

}  // namespace
}  // namespace lipvane::test
