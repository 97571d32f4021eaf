// SECURITY.md names every limit, with its value.

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "tests/support/temporary_folder.h"

namespace lipvane::test {
namespace {

/// What a constant of a source file is, without blanks: "std::size_t{4}<<30".
std::string Value(const std::string& source, std::size_t at) {
  const std::size_t begin = source.find('=', at) + 1;
  std::string value;
  for (const char c : source.substr(begin, source.find(';', begin) - begin)) {
    if (c != ' ') value += c;
  }
  return value;
}

/// The products, shifts and differences that the limits are written with.
std::size_t Evaluated(std::string value) {
  if (const std::size_t minus = value.rfind("-1"); minus != std::string::npos) {
    return Evaluated(value.substr(1, minus - 2)) - 1;
  }
  std::size_t shift = 0;
  if (const std::size_t at = value.find("<<"); at != std::string::npos) {
    shift = std::stoul(value.substr(at + 2));
    value.resize(at);
  }
  if (const std::size_t brace = value.find('{'); brace != std::string::npos) {
    value = value.substr(brace + 1, value.find('}') - brace - 1);
  }
  return std::stoul(value) << shift;
}

TEST(Limits, AreDocumentedWithTheirValues) {
  const std::string root = LIPVANE_SOURCE_DIR "/";
  const std::string document = FileContent(root + "SECURITY.md");
  int count = 0;
  for (const char* file :
       {"lipvane/text/file.h", "lipvane/formats/limits.h", "lipvane/host/standalone/limits.h",
        "lipvane/check/finding.h", "cli/samples.h", "cli/bake.cc"}) {
    const std::string source = FileContent(root + file);
    for (std::size_t at = source.find(" kM"); at != std::string::npos;
         at = source.find(" kM", at)) {
      const std::string name = source.substr(at + 1, source.find(' ', at + 1) - at - 1);
      at += name.size();
      if (source.compare(at + 1, 2, " =") != 0) continue;  // used, not defined
      const std::string row =
          "| `" + name + "` | " + std::to_string(Evaluated(Value(source, at))) + " |";
      EXPECT_NE(document.find(row), std::string::npos) << file << ": " << row;
      ++count;
    }
  }
  EXPECT_EQ(count, 18);
}

}  // namespace
}  // namespace lipvane::test
